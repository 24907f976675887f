// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_platform.h"

#include "platform/program_folder.h"
#include "platform/qt_pictures.h"
#include "platform/x_output.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
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

// No ordinary file, or one far too large, was not written by this program.
QString stateFile()
{
    const QFileInfo file(QString::fromStdString((stateFolder() / "etat.ini").string()));
    constexpr qint64 largest = 1 << 20;
    return file.exists() && (!file.isFile() || file.size() > largest) ? QString() : file.filePath();
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

// Under Wayland the compositor alone sets the modes of the displays.
std::unique_ptr<DisplayOutput> changeableOutput()
{
    const bool x = QGuiApplication::platformName() == QLatin1String("xcb") && qgetenv("XDG_SESSION_TYPE") != "wayland";
    return x ? primaryXOutput() : nullptr;
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

QtPlatform::QtPlatform() : m_display(changeableOutput, stateFolder()), m_kept(stateFile(), QSettings::IniFormat) { }

bool QtPlatform::placesWindows() const
{
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland")); // whose compositor does
}

std::string keptHere(const std::string &what)
{
    return QSettings(stateFile(), QSettings::IniFormat).value(QString::fromStdString(what)).toString().toStdString();
}

std::string QtPlatform::remembered(const std::string &what) const
{
    return m_kept.value(QString::fromStdString(what)).toString().toStdString();
}

void QtPlatform::remember(const std::string &what, const std::string &text)
{
    m_kept.setValue(QString::fromStdString(what), QString::fromStdString(text));
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
        preview(QPageLayout::Portrait,
                [article = asDocument(QString::fromStdString(text))](QPrinter &printer) { article->print(&printer); });
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

DisplayMode QtPlatform::displayMode() const
{
    const QScreen *display = QGuiApplication::primaryScreen();
    const int depth = display->depth() == 24 ? 32 : display->depth(); // bits of colour, bits of a pixel
    if (const auto mode = m_display.present())
        return {mode->width, mode->height, depth};
    const QSize size = display->size() * display->devicePixelRatio();
    return {size.width(), size.height(), depth};
}

// The windows of a handler that changes the display are laid out before Qt hears of the new size from X.
void QtPlatform::awaitNewSize()
{
    const QScreen *display = QGuiApplication::primaryScreen();
    const auto mode = m_display.present();
    m_coming.reset();
    if (!mode || !display || QSize(mode->width, mode->height) == display->size() * display->devicePixelRatio())
        return;
    m_coming = QSize(mode->width, mode->height) / display->devicePixelRatio();
    QObject::connect(
        display, &QScreen::geometryChanged, &m_here, [this] { m_coming.reset(); }, Qt::SingleShotConnection);
}

bool QtPlatform::keepFolder(const std::string &path)
{
    return chooseFolder(ownFolder(), path);
}

DisplayChange QtPlatform::changeDisplay(const DisplayMode &mode, int hertz)
{
    const bool done = m_display.change(mode.width, mode.height, hertz);
    awaitNewSize();
    return done ? DisplayChange::done : DisplayChange::refused;
}

void QtPlatform::changeDisplayPlainly(int width, int height)
{
    m_display.changePlainly(width, height);
    awaitNewSize();
}

void QtPlatform::putDisplayBack()
{
    m_display.putBack();
    awaitNewSize();
}

// Asks the system's session manager, which asks the user for his password where he may not.
void QtPlatform::restartMachine()
{
    for (const char *const manager : {"systemctl", "loginctl"})
        if (QProcess::startDetached(QString::fromLatin1(manager), {QStringLiteral("reboot")}))
            return;
}

// Not by quit(), which would close the windows one by one.
void QtPlatform::endProgram()
{
    QCoreApplication::exit(0);
}

Room QtPlatform::roomFor(const QWidget &window) const
{
    const QScreen *there = QGuiApplication::screenAt(window.geometry().center()); // also before it is shown there
    const QScreen *display = there ? there : window.screen();
    const bool stale = m_coming && display == QGuiApplication::primaryScreen();
    const QRect free = stale ? QRect(display->geometry().topLeft(), *m_coming) : display->availableGeometry();
    return {free.x(), free.y(), free.width(), free.height()};
}

}
