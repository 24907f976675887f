// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/export.h"

#include "app/driver.h"
#include "platform/file_lookup.h"
#include "platform/qt_page.h"
#include "platform/qt_pictures.h"
#include "platform/qt_platform.h"
#include "results/navigation.h"
#include "shell/chart_view.h"
#include "shell/copies.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QPixmap>
#include <QTemporaryDir>

namespace circuidex {

namespace {

constexpr int mostWait = 10'000; // milliseconds, for a screen's timers

const std::pair<QString, Format> formats[] = {{u"csv"_s, Format::csv},   {u"html"_s, Format::html},
                                              {u"json"_s, Format::json}, {u"png"_s, Format::png},
                                              {u"svg"_s, Format::svg},   {u"pdf"_s, Format::pdf}};

// The chart that a screen is there for; none where several stand side by side.
const ChartView *chartOf(const Screen &screen)
{
    const ChartView *found = nullptr;
    for (const ChartView *view : screen.findChildren<ChartView *>()) {
        if (!view->isVisibleTo(&screen) || view->contextMenuPolicy() == Qt::NoContextMenu)
            continue;
        if (found)
            return nullptr;
        found = view;
    }
    return found;
}

QByteArray pngOf(Screen &screen)
{
    QPixmap seen = screen.grab();
    if (awaitPictures())
        seen = screen.grab();
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    seen.save(&bytes, "PNG");
    return bytes.data();
}

QByteArray pdfOf(Screen &screen)
{
    const QTemporaryDir room;
    QFile file(room.filePath(u"page.pdf"_s));
    return printScreen(screen, file.fileName()) && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}

std::optional<Format> formatNamed(const QString &name)
{
    for (const auto &[known, format] : formats)
        if (known == name.toLower())
            return format;
    return std::nullopt;
}

QString nameOf(Format format)
{
    for (const auto &[name, known] : formats)
        if (known == format)
            return name;
    return {};
}

Export::Export(const std::filesystem::path &folder, Numbers numbers, const QString &season)
    : m_dialogs(std::make_unique<QueuedDialogs>()), m_platform(std::make_unique<RecordingPlatform>()),
      m_program(std::make_unique<Program>(folder, numbers, *m_dialogs, *m_platform))
{
    stayOffline();
    m_program->store().setReadOnly();
    const std::string year = season.isEmpty() ? m_program->store().yearMarker() : season.toStdString();
    if (year.empty())
        m_fault = u"le dossier « %1 » n'a pas de saison."_s.arg(qt(folder.string()));
    else if (findFile(folder, "f1" + year + ".ini").empty())
        m_fault = u"la saison « %1 » n'est pas dans le dossier « %2 »."_s.arg(qt(year), qt(folder.string()));
    else
        openSeason(season);
}

Export::~Export() = default;

void Export::openSeason(const QString &season)
{
    m_program->start();
    results::MainRecord &main = m_program->context().main;
    if (!season.isEmpty()) {
        main.an.set(season.toStdString());
        results::openOnLastRecorded(main);
    }
}

QStringList Export::screens() const
{
    QStringList names;
    for (const ScreenRow &row : m_program->screens().rows())
        names << row.name;
    return names;
}

QString Export::nameOf(const QString &screen) const
{
    for (const QString &name : screens())
        if (name.compare(screen, Qt::CaseInsensitive) == 0)
            return name;
    return {};
}

std::optional<QByteArray> Export::taken(const QString &name, Format format, bool figures)
{
    Screens &all = m_program->screens();
    all.openFromMenu(name);
    settle();
    Screen *screen = all.find(name);
    if (!screen) { // some close again when they have nothing to show
        m_fault = u"l'écran %1 ne s'ouvre pas seul."_s.arg(name);
        return std::nullopt;
    }
    auto bytes = inForm(*screen, format, figures);
    for (const QString &opened : all.openNames())
        if (opened != u"Form1")
            all.close(opened);
    settle();
    return bytes;
}

std::optional<QByteArray> Export::inForm(Screen &screen, Format format, bool figures)
{
    const auto sheet = sheetOf(screen, seasonOnShow(m_program->screens()));
    if (sheet.grids.empty() && (figures || sheet.facts.empty())) {
        m_fault = u"l'écran %1 n'a ni tableau ni courbe."_s.arg(screen.name());
        return std::nullopt;
    }
    const bool isText = format == Format::csv || format == Format::html || format == Format::json;
    return isText ? text(sheet, format) : picture(screen, format);
}

QByteArray Export::text(const table_text::Sheet &sheet, Format format) const
{
    switch (format) {
    case Format::html:
        return QByteArray::fromStdString(asHtml(sheet));
    case Format::json:
        return QByteArray::fromStdString(asJson(sheet));
    default:
        return QByteArray::fromStdString(asCsv(sheet, csvSeparator(m_program->store().numbers().separator())));
    }
}

std::optional<QByteArray> Export::picture(Screen &screen, Format format)
{
    const ChartView *chart = chartOf(screen);
    if (format == Format::svg && !chart) {
        m_fault = u"l'écran %1 n'a pas de courbe à donner en SVG."_s.arg(screen.name());
        return std::nullopt;
    }
    if (format == Format::svg)
        return chart->svg();
    if (format == Format::png)
        return chart ? chart->png() : pngOf(screen);
    return chart ? chart->pdf() : pdfOf(screen);
}

void Export::settle() const
{
    const QDeadlineTimer over(mostWait);
    do
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    while ((awaitPictures() || m_program->screens().timersPending()) && !over.hasExpired());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}
