#include "platform/qt_platform.h"

#include "platform/qt_pictures.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPicture>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QScreen>
#include <QTextDocument>
#include <QUrl>
#include <QWidget>

#include <algorithm>
#include <functional>
#include <memory>

namespace circuidex {

namespace {

// A printer to draw on: a PDF file where one is named, otherwise the default one; null when there is none.
std::unique_ptr<QPrinter> printerFor(const QString &pdfFile)
{
    if (pdfFile.isEmpty() && QPrinterInfo::defaultPrinter().isNull())
        return nullptr;
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!pdfFile.isEmpty()) {
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(pdfFile);
    }
    return printer;
}

// The pages on the screen first; there the user chooses the printer, or a file, and prints.
void preview(QPageLayout::Orientation orientation, const std::function<void(QPrinter &)> &paint)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(orientation);
    QPrintPreviewDialog dialog(&printer); // no parent: a timer may close the screen in front while the dialog is up
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&paint](QPrinter *on) { paint(*on); });
    dialog.exec();
}

QPageLayout::Orientation orientationFor(const QWidget &screen)
{
    return screen.width() > screen.height() ? QPageLayout::Landscape : QPageLayout::Portrait;
}

// Drawn straight to a printer a screen becomes one bitmap of half a gigabyte; so its lines and letters are taken down.
struct TakenDown {
    QPicture picture;
    QSize size;
};

TakenDown takenDown(QWidget &screen)
{
    awaitPictures();
    TakenDown taken{QPicture(), screen.size()};
    QPainter painter(&taken.picture);
    screen.render(&painter);
    return taken;
}

void draw(const TakenDown &taken, QPainter &painter, const QSizeF &page)
{
    // a picture is drawn so much larger
    const double denser = double(painter.device()->logicalDpiX()) / taken.picture.logicalDpiX();
    const double scale = std::min(page.width() / taken.size.width(), page.height() / taken.size.height());
    painter.translate((page.width() - scale * taken.size.width()) / 2, 0);
    painter.scale(scale / denser, scale / denser);
    painter.drawPicture(0, 0, taken.picture);
}

bool draw(const TakenDown &taken, QPrinter &printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    draw(taken, painter, printer.pageRect(QPrinter::DevicePixel).size());
    return painter.end();
}

std::shared_ptr<QTextDocument> asDocument(const QString &text)
{
    auto document = std::make_shared<QTextDocument>();
    QFont font = QGuiApplication::font();
    font.setPointSize(11);
    document->setDefaultFont(font);
    document->setPlainText(text);
    return document;
}

}

void drawScreen(QWidget &screen, QPainter &painter, const QSizeF &page)
{
    draw(takenDown(screen), painter, page);
}

bool printScreen(QWidget &screen, const QString &pdfFile)
{
    const auto printer = printerFor(pdfFile);
    if (printer)
        printer->setPageOrientation(orientationFor(screen));
    return printer && draw(takenDown(screen), *printer);
}

bool printText(const QString &text, const QString &pdfFile)
{
    const auto printer = printerFor(pdfFile);
    if (printer)
        asDocument(text)->print(printer.get());
    return printer && printer->printerState() != QPrinter::Error;
}

void QtPlatform::print(QWidget &screen, const std::string &, Printing how)
{
    if (how == Printing::atOnce) {
        printScreen(screen);
        return;
    }
    const TakenDown taken = takenDown(screen);
    preview(orientationFor(screen), [&taken](QPrinter &printer) { draw(taken, printer); });
}

void QtPlatform::printText(const std::string &text, Printing how)
{
    if (how == Printing::atOnce)
        circuidex::printText(QString::fromStdString(text));
    else
        preview(QPageLayout::Portrait, [article = asDocument(QString::fromStdString(text))](QPrinter &printer) {
            article->print(&printer);
        });
}

void QtPlatform::wake()
{
    if (m_sentFor.exchange(true))
        return;
    QMetaObject::invokeMethod(
        &m_here,
        [this] {
            m_sentFor = false;
            m_mpv.attend();
        },
        Qt::QueuedConnection);
}

void QtPlatform::startProgram(const std::string &path)
{
    QProcess::startDetached(QString::fromStdString(path), {});
}

void QtPlatform::openAddress(const std::string &address)
{
    QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

// Not by quit(), which would close the windows one by one.
DisplayMode QtPlatform::displayMode() const
{
    const QScreen *display = QGuiApplication::primaryScreen();
    const QSize size = display->size() * display->devicePixelRatio();
    return {size.width(), size.height(), display->depth()};
}

void QtPlatform::endProgram()
{
    QCoreApplication::exit(0);
}

Room QtPlatform::roomFor(const QWidget &window) const
{
    const QRect free = window.screen()->availableGeometry();
    return {free.x(), free.y(), free.width(), free.height()};
}

}
