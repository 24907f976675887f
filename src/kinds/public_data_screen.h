// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of the screens that work with public data: where the archive comes from (a file that the user chooses, or
// the address of "serveurs.ini"), its reading, why it is refused, and how far a long piece of work is. What was read
// stays with the program, for the next time the screen opens.
#include "platform/qt_download.h"
#include "publicdata/reading.h"
#include "shell/screen.h"

#include <QPointer>
#include <QProgressBar>

namespace circuidex {

class PublicDataScreen : public Screen {
public:
    struct Release {
        QString from; // the file's name
        publicdata::Data data;
    };
    using Kept = std::shared_ptr<std::optional<Release>>; // of the screen's row

    PublicDataScreen(Context &context, const QString &name, const QString &title, Kept kept);

protected:
    // To be called at the end of the constructor, once the screen is laid out: shows what there is already.
    void begin();

    QWidget *sourceCard();
    QWidget *progressCard();
    const publicdata::Data *data() const { return *m_kept ? &(*m_kept)->data : nullptr; }

    // A transfer, a reading or a piece of work is under way.
    bool busy() const { return m_download.running() || m_step; }
    // Calls `step` from the event loop until it answers false. The window answers between two calls.
    void work(std::function<bool()> step);
    void showProgress(const QString &says, int done, int all);
    void say(const QString &says);

    // The rows of a table in sight, each as high as the wrapped text of the column needs.
    static void fitRows(Table &table, int column);
    void keepFitting(Table &table, int column); // also in another width

    virtual void dataRead() = 0; // there is new data, or data for the first time
    virtual void busyChanged() = 0;
    virtual void workCancelled() { } // by the user

    void keyPressEvent(QKeyEvent *event) override; // while it is busy Escape cancels and the window stays

private:
    void choose();
    void fetch();
    void read(const std::string &path);
    bool readOn();
    void turn();
    void cancel();
    void showBusy();

    Kept m_kept;
    QtDownload m_download;
    std::unique_ptr<publicdata::Reading> m_reading;
    std::unique_ptr<Waiting> m_waiting;
    std::function<bool()> m_step; // empty while nothing is under way
    QString m_file; // that is read
    bool m_fetched = false; // it is the one that the program fetched
    TimerControl *m_turns;
    QPointer<QWidget> m_focus; // before it was busy
    Button *m_choose = nullptr, *m_fetch = nullptr, *m_cancel = nullptr;
    QLabel *m_source = nullptr, *m_said = nullptr;
    QProgressBar *m_bar = nullptr;
};

}
