#include "platform/qt_platform.h"

#include "platform/qt_pictures.h"

#include <QDesktopServices>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>

namespace circuidex {

bool printScreen(QWidget &screen, const QString &pdfFile)
{
    if (pdfFile.isEmpty() && QPrinterInfo::defaultPrinter().isNull())
        return false;
    QPrinter printer(QPrinter::HighResolution);
    if (!pdfFile.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfFile);
    }
    printer.setPageOrientation(screen.width() > screen.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const QRectF page = printer.pageRect(QPrinter::DevicePixel);
    const double scale = std::min(page.width() / screen.width(), page.height() / screen.height());
    painter.scale(scale, scale);
    awaitPictures();
    screen.render(&painter);
    return painter.end();
}

void QtPlatform::print(QWidget &screen, const std::string &)
{
    printScreen(screen);
}

// Asked for by name: what the system opens a file with may be anything, the interpreter of a script too.
bool QtPlatform::play(const std::string &path)
{
    for (const char *player :
         {"vlc", "totem", "celluloid", "haruna", "dragon", "parole", "smplayer", "mpv", "mplayer", "ffplay"})
        if (const QString program = QStandardPaths::findExecutable(QLatin1String(player)); !program.isEmpty())
            return QProcess::startDetached(program, {QString::fromStdString(path)});
    return false;
}

void QtPlatform::startProgram(const std::string &path)
{
    QProcess::startDetached(QString::fromStdString(path), {});
}

void QtPlatform::openAddress(const std::string &address)
{
    QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

Room QtPlatform::roomFor(const QWidget &window) const
{
    const QRect free = window.screen()->availableGeometry();
    return {free.x(), free.y(), free.width(), free.height()};
}

}
