// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A run of the update: it fetches one archive after the other, hands them to the extractor and ends the program. It
// goes on as each transfer ends and outlives the screen that began it, so it belongs to that screen's row. A transfer
// that fails or is cancelled is a step like any other: what has arrived by then is unpacked.
#include "online/update_run.h"
#include "platform/qt_download.h"
#include "shell/screen.h"

#include <QEventLoopLocker>

namespace circuidex {

class UpdateRunner : public QObject {
    Q_OBJECT
public:
    struct Place {
        QString source, destination; // as the boxes hold them: below the program folder with a backslash
    };
    using Places = std::array<Place, online::updateArchives.size()>;

    void begin(Context &context, online::UpdateRun run, const Places &places);
    bool running() const { return m_context; }
    void cancel() { m_download.CancelDownload(); } // the transfer; the run goes on

    // What is fetched, as "Photos (2 sur 3)"; empty when nothing is.
    QString fetching() const;
    const QtDownload &download() const { return m_download; }

private:
    void goOn();
    void act(const online::RunStep &step);

    QtDownload m_download;
    Context *m_context = nullptr; // while it runs
    Places m_places;
    std::vector<online::RunStep> m_steps; // those to come
    std::size_t m_archive = 0, m_fetched = 0, m_toFetch = 0;
    std::unique_ptr<QEventLoopLocker> m_stay; // without a window, too
    bool m_besideMain = false;
};

// Why no run can begin, for the user; empty when one can.
QString updateObstacle(const Context &context);

// The text of such a box for a name that begins with a backslash, and the file that such a text means.
QString destinationText(const Context &context, std::string_view name);
std::filesystem::path destinationPath(const Context &context, const QString &text);

}
