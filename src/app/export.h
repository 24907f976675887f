// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Takes off a screen what it shows, without a display: its tables, its chart or its boxes, as text or as a picture. The
// folder is opened read-only, so that nothing in it changes and the program may have it open meanwhile; nothing is
// asked of the network.
#include "store/number.h"
#include "store/table_text.h"

#include <QByteArray>
#include <QStringList>

#include <filesystem>
#include <memory>

namespace circuidex {

class Program;
class QueuedDialogs;
class RecordingPlatform;
class Screen;

enum class Format { csv, html, json, png, svg, pdf };

// By its name, as "csv"; absent for another one.
std::optional<Format> formatNamed(const QString &name);
QString nameOf(Format format);

class Export {
public:
    // On a season, or where none is named on the one that the program would open. `fault` says in French when there is
    // no such season.
    Export(const std::filesystem::path &folder, Numbers numbers, const QString &season);
    ~Export();

    const QString &fault() const { return m_fault; }

    // "Form6" for any way to write it; empty when there is no such screen.
    QString nameOf(const QString &screen) const;

    // Absent, and `fault` says why, when the screen doesn't open by itself or has nothing in this form; with `figures`
    // also when it has neither table nor chart.
    std::optional<QByteArray> taken(const QString &screen, Format format, bool figures = false);

    QStringList screens() const; // all, by name

private:
    void openSeason(const QString &season);
    std::optional<QByteArray> inForm(Screen &screen, Format format, bool figures);
    QByteArray text(const table_text::Sheet &sheet, Format format) const;
    std::optional<QByteArray> picture(Screen &screen, Format format);
    void settle() const;

    std::unique_ptr<QueuedDialogs> m_dialogs;
    std::unique_ptr<RecordingPlatform> m_platform;
    std::unique_ptr<Program> m_program;
    QString m_fault;
};

}
