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
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QScreen>
#include <QTextDocument>
#include <QUrl>
#include <QWidget>

#include <algorithm>
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

// The printer that the user chooses; null when he cancels.
std::unique_ptr<QPrinter> chosenPrinter(int pages)
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer.get()); // no parent: a timer may close the screen in front while the dialog is up
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    dialog.setMinMax(1, pages);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    return printer;
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
QPicture takenDown(QWidget &screen)
{
    awaitPictures();
    QPicture picture;
    QPainter painter(&picture);
    screen.render(&painter);
    return picture;
}

bool draw(QWidget &screen, QPrinter &printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    drawScreen(screen, painter, printer.pageRect(QPrinter::DevicePixel).size());
    return painter.end();
}

std::unique_ptr<QTextDocument> asDocument(const QString &text)
{
    auto document = std::make_unique<QTextDocument>();
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
    const QPicture picture = takenDown(screen);
    const double denser =
        double(painter.device()->logicalDpiX()) / picture.logicalDpiX(); // a picture is drawn so much larger
    const double scale = std::min(page.width() / screen.width(), page.height() / screen.height());
    painter.translate((page.width() - scale * screen.width()) / 2, 0);
    painter.scale(scale / denser, scale / denser);
    painter.drawPicture(0, 0, picture);
}

bool printScreen(QWidget &screen, const QString &pdfFile)
{
    const auto printer = printerFor(pdfFile);
    if (printer)
        printer->setPageOrientation(orientationFor(screen));
    return printer && draw(screen, *printer);
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
    const QPointer<QWidget> still(&screen);
    const auto printer = chosenPrinter(1);
    if (printer && still)
        draw(screen, *printer);
}

void QtPlatform::printText(const std::string &text, Printing how)
{
    if (how == Printing::atOnce)
        circuidex::printText(QString::fromStdString(text));
    else if (const auto printer = chosenPrinter(9999))
        asDocument(QString::fromStdString(text))->print(printer.get());
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

bool QtPlatform::keepFolder(const std::string &path)
{
    return chooseFolder(ownFolder(), path);
}

DisplayChange QtPlatform::changeDisplay(const DisplayMode &mode, int hertz)
{
    return m_display.change(mode.width, mode.height, hertz) ? DisplayChange::done : DisplayChange::refused;
}

void QtPlatform::changeDisplayPlainly(int width, int height)
{
    m_display.changePlainly(width, height);
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
    const QRect free = (there ? there : window.screen())->availableGeometry();
    return {free.x(), free.y(), free.width(), free.height()};
}

}
