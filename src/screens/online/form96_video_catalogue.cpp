// SPDX-License-Identifier: GPL-3.0-or-later
// Form96, the films that the update server offers: its list, the download of one of them into the program folder, and
// the way on to the player. Under the name of a Grand Prix and a season a film is that race's on the main screen.
#include "kinds/page_view.h"
#include "kinds/update_runner.h"
#include "online/video_catalogue.h"
#include "platform/qt_download.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QProgressBar>

namespace circuidex::screens {

namespace {

class Form96 : public Screen {
public:
    Form96(Context &context, const QString &name, const QString &title);

protected:
    void closing() override;

private:
    QWidget *list();
    QWidget *offList();
    QWidget *transfer();
    void fetchList();
    void showList();
    void aim(std::string_view path, std::string_view file); // the next transfer
    void select(int place);
    void downloadSelected();
    void start();
    void videoEnded();
    void setBusy(bool busy);

    QtDownload m_download;
    std::function<void()> m_ended; // what follows the transfer that runs
    std::vector<QWidget *> m_choices; // what waits while a film is fetched
    QGridLayout *m_rows = nullptr;
    Label *m_marker = nullptr, *m_state = nullptr;
    QProgressBar *m_bar = nullptr;
};

Form96::Form96(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    hidden(u"Source"_s);
    hidden(u"Destination"_s);
    auto *side = new QVBoxLayout;
    side->setSpacing(look::gap);
    side->addWidget(offList());
    side->addWidget(transfer());
    auto *note = styled(u"Les vidéos téléchargées sont disponibles depuis la page principale lorsque vous "
                        "séléctionnez le Grand Prix correspondant"_s,
                        "hint");
    note->setWordWrap(true);
    side->addWidget(note);
    side->addStretch(1);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(look::gap);
    columns->addWidget(list(), 3);
    columns->addLayout(side, 2);
    auto *foot = new QHBoxLayout;
    foot->addWidget(button(u"Command3"_s, u"Paramétrer le fichier *.ini"_s, [this] {
        context.screens.open(u"Form98"_s);
        close();
    }));
    foot->addStretch(1);
    foot->addWidget(command(u"Label71"_s, u"Réduire cette fenêtre"_s, [this] { showMinimized(); }));
    auto *layout = page();
    layout->addLayout(columns);
    layout->addLayout(foot);
    body()->setMinimumWidth(900);
    setText(u"Text1"_s, qt(context.main.an.text()) + u".avi"_s);
    fetchList();
}

QWidget *Form96::list()
{
    m_rows = new QGridLayout;
    m_rows->setSpacing(0);
    m_rows->setHorizontalSpacing(4);
    m_marker = add(u"Label2"_s, new Label);
    m_marker->setFixedSize(14, look::rowHeight);
    m_rows->addWidget(m_marker, 0, 0);
    for (int place = 1; place <= online::cataloguePlaces; ++place) {
        auto *row = add(u"Label4"_s, new Label, place);
        row->makeCommand();
        row->setProperty("command", {});
        row->setProperty("slot", true);
        row->setFixedHeight(look::rowHeight);
        row->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        row->setToolTip(u"Clic = Selection - Double-clic = Telechargement"_s);
        row->onClick = [this, place] { select(place); };
        row->onDoubleClick = [this, place] {
            select(place);
            press(u"Command1"_s);
        };
        m_rows->addWidget(styled(QString::number(place), "place"), place - 1, 1, Qt::AlignRight | Qt::AlignVCenter);
        m_rows->addWidget(row, place - 1, 2);
        m_choices.push_back(row);
    }
    m_rows->setColumnMinimumWidth(0, 14);
    m_rows->setColumnStretch(2, 1);
    auto *layout = new QVBoxLayout;
    layout->addLayout(m_rows);
    auto *fetch = button(u"Command1"_s, u"Télécharger la vidéo séléctionnée"_s, [this] { downloadSelected(); });
    fetch->makeMain();
    m_choices.push_back(fetch);
    layout->addWidget(fetch, 0, Qt::AlignRight);
    return card(u"Liste des 20 dernières vidéos disponibles sur le serveur:"_s, layout);
}

QWidget *Form96::offList()
{
    auto *layout = new QVBoxLayout;
    layout->addWidget(new Label(u"Nom du fichier:"_s));
    auto *box = add(u"Text1"_s, new Edit);
    box->setToolTip(u"Nom du Grand Prix, année, puis .avi, comme Saint-Marin2005.avi"_s);
    layout->addWidget(box);
    auto *fetch = button(u"Command4"_s, u"Télécharger la vidéo hors liste"_s, [this] {
        aim(online::videosPath, text(u"Text1"_s).toStdString());
        press(u"Command1"_s);
    });
    connect(box, &QLineEdit::returnPressed, fetch, &QPushButton::click);
    m_choices.insert(m_choices.end(), {box, fetch});
    layout->addWidget(fetch, 0, Qt::AlignRight);
    return card(u"Telecharger une vidéo hors liste"_s, layout);
}

QWidget *Form96::transfer()
{
    m_bar = new QProgressBar;
    m_bar->setRange(0, 1);
    m_bar->setValue(0);
    m_state = add(u"Etat"_s, new Label);
    m_state->setWordWrap(true);
    m_state->setMinimumHeight(3 * look::rowHeight); // so that nothing jumps with a longer one
    m_state->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    connect(&m_download, &QtDownload::DownloadProgress, this, [this](quint8, qint32 received, qint32 total, qint32) {
        m_bar->setRange(0, total);
        m_bar->setValue(received);
    });
    connect(&m_download, &QtDownload::DownloadStatus, m_state, &QLabel::setText);
    connect(&m_download, &QtDownload::ended, this, [this] {
        if (const auto follow = std::exchange(m_ended, {}))
            follow();
    });
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_bar);
    layout->addWidget(m_state);
    layout->addWidget(button(u"Command2"_s, u"Arrêter le téléchargement et le reprendre plus tard"_s,
                             [this] { m_download.CancelDownload(); }),
                      0, Qt::AlignRight);
    return card(u"Téléchargement"_s, layout);
}

// The list that lies here gives way to the server's. Without a server it is all there is.
void Form96::fetchList()
{
    aim(online::cataloguePath, online::catalogueFile.substr(1));
    if (const QString obstacle = updateObstacle(context); !obstacle.isEmpty()) {
        m_state->setText(obstacle);
        return showList();
    }
    online::removeDownload(destinationPath(context, text(u"Destination"_s)));
    m_ended = [this] { showList(); };
    start();
}

void Form96::showList()
{
    context.store.newMoment();
    const online::Catalogue videos = online::readCatalogue(context.store);
    for (int place = 1; place <= online::cataloguePlaces; ++place)
        setText(u"Label4"_s, qt(videos[place].description), place);
}

void Form96::aim(std::string_view path, std::string_view file)
{
    const bool list = path == online::cataloguePath;
    const QString server = updateServer(context, qt(path));
    setText(u"Source"_s, server.isEmpty() || list ? server : server + qt(file));
    setText(u"Destination"_s, destinationText(context, std::string("\\").append(file)));
}

void Form96::select(int place)
{
    aim(online::videosPath, online::readCatalogue(context.store)[place].file);
    for (int each = 1; each <= online::cataloguePlaces; ++each)
        control(u"Label4"_s, each)->setBack(each == place ? std::optional(look::chosen) : std::nullopt);
    m_marker->setText(u"►"_s);
    m_rows->removeWidget(m_marker);
    m_rows->addWidget(m_marker, place - 1, 0);
    m_rows->activate();
}

// The film lies in the program folder then, or it doesn't: the player is sent for it either way.
void Form96::downloadSelected()
{
    if (const QString obstacle = updateObstacle(context); !obstacle.isEmpty())
        return m_state->setText(obstacle);
    setBusy(true);
    m_ended = [this] { videoEnded(); };
    start();
}

// A name that would lead out of the folder, or to what is no film, counts as a transfer that failed.
void Form96::start()
{
    const std::filesystem::path to = destinationPath(context, text(u"Destination"_s));
    const std::string name = to.lexically_relative(context.store.folder()).string();
    if (name == online::catalogueFile.substr(1) || online::filmPlace(context.store.folder(), name))
        m_download.StartDownload(text(u"Source"_s), qt(to.string()), true);
    else
        std::exchange(m_ended, {})();
}

void Form96::videoEnded()
{
    const QString path = text(u"Destination"_s);
    close();
    Screen *gallery = context.screens.open(u"frmmain"_s);
    if (!gallery)
        return;
    gallery->setText(u"Command8"_s, path);
    gallery->press(u"Command8"_s);
}

void Form96::setBusy(bool busy)
{
    for (QWidget *each : m_choices)
        each->setEnabled(!busy);
}

// Whoever closes it doesn't wait for a film any more; what has come of it is kept for another time.
void Form96::closing()
{
    m_ended = {};
    m_download.CancelDownload();
}

}

ScreenRows form96()
{
    return {screenRow<Form96>(u"Form96"_s, u"Catalogue de Vidéos en Ligne"_s)};
}

}
