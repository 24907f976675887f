#include "platform/qt_platform.h"

#include "platform/qt_pictures.h"

#include <QDesktopServices>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QScreen>
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

Room QtPlatform::roomFor(const QWidget &window) const
{
    const QRect free = window.screen()->availableGeometry();
    return {free.x(), free.y(), free.width(), free.height()};
}

}
