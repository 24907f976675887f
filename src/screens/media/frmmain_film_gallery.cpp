// SPDX-License-Identifier: GPL-3.0-or-later
// frmmain, the gallery of films and the player of the whole program: a click on a slot plays its film, a double click
// files another one. The main screen is out of sight while it is open.
#include "kinds/gallery_page.h"
#include "media/player_state.h"
#include "platform/platform.h"
#include "results/main_record.h"
#include "results/media_of_grand_prix.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QGridLayout>
#include <QPainter>
#include <QStyle>
#include <QTimer>
#include <QWindow>

namespace circuidex::screens {

namespace {

constexpr int seekStep = 650, seekLeap = 30'000; // times the player's own step, in milliseconds
const QString freeSlot = qt(media::films.noPath);

// A path as a person reads it: the file first, then quietly its folder. The text stays the whole path.
class FilmSlot : public Label {
public:
    FilmSlot() : Label(freeSlot)
    {
        setProperty("slot", true);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        setFixedHeight(look::rowHeight + 2);
        setCursor(Qt::PointingHandCursor);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QFrame::paintEvent(event);
        const QString path = QString(text()).replace(u'\\', u'/');
        const bool taken = text() != freeSlot;
        const QString file = taken ? path.section(u'/', -1) : text();
        const QFontMetrics metrics = fontMetrics();
        QRect room = contentsRect();
        QPainter painter(this);
        painter.setPen(look::written(taken ? look::ink : look::quiet));
        const QString first = metrics.elidedText(file, Qt::ElideMiddle, room.width());
        painter.drawText(room, Qt::AlignVCenter, first);
        room.setLeft(room.left() + metrics.horizontalAdvance(first) + 2 * look::gap);
        painter.setPen(look::written(look::quiet));
        if (taken && room.width() > 60)
            painter.drawText(room, Qt::AlignVCenter,
                             metrics.elidedText(path.section(u'/', 0, -2), Qt::ElideMiddle, room.width()));
    }
};

// The caption over the player's buttons is a handle, too: the window system drags the window by it, or else we do.
class DragHandle : public Label {
public:
    using Label::Label;

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        m_noted = event->globalPosition().toPoint() - window()->pos();
        m_dragging = event->button() == Qt::LeftButton &&
            !(window()->windowHandle() && window()->windowHandle()->startSystemMove());
    }
    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (m_dragging)
            window()->move(event->globalPosition().toPoint() - m_noted);
    }
    void mouseReleaseEvent(QMouseEvent *) override { m_dragging = false; }

private:
    QPoint m_noted;
    bool m_dragging = false;
};

class FrmMain : public GalleryPage {
public:
    FrmMain(Context &context, const QString &name, const QString &title);
    ~FrmMain() override;

protected:
    void showSlot(int slot, const std::string &path) override;
    void showSelected(int slot, bool selected) override;
    void slotClicked() override { m_clicked->start(500); }
    std::optional<std::string> askForFile(int slot) override;
    void slotFiled() override;
    void emptySlot() override { press(u"Command11"_s); }
    void closing() override; // the main window comes back in sight

private:
    QWidget *pageCard();
    QLayout *slotRows();
    QWidget *playerCard();
    QLayout *transport();
    QWidget *deletionCard();
    Button *sign(const QString &name, QStyle::StandardPixmap picture, const QString &tip,
                 std::function<void()> handler);
    Label *leap(const QString &name, const QString &caption, const QString &tip, std::function<void()> seek);

    void playSelected();
    void playCalled();
    void play(const QString &path);
    void pause();
    void stop();
    void step(void (media::Gallery::*by)());
    void runCounter(bool on);
    void showCounters(const media::Counters &counters);
    void showState() { setText(u"lblCaption"_s, qt(m_player.state())); }
    void followHand();

    media::FilmPlayer &m_player;
    TimerControl *m_clicked = nullptr;
    QTimer m_counter; // of the control "Timer": it ticks while a film plays, and nobody waits for it
    QGridLayout *m_rows = nullptr;
    Label *m_marker = nullptr;
};

FrmMain::FrmMain(Context &theContext, const QString &name, const QString &title)
    : GalleryPage(theContext, name, title, media::films, 1), m_player(theContext.platform.player())
{
    Screen *main = context.screens.find(u"Form1"_s);
    if (main) {
        main->setWindowState(Qt::WindowNoState);
        main->putAway(500000);
    }
    m_clicked = &timer(u"Timer1"_s, 0, TimerControl::Kind::once, [this] {
        press(u"Command2"_s);
        press(u"Command1"_s);
    });
    m_counter.setTimerType(Qt::PreciseTimer);
    connect(&m_counter, &QTimer::timeout, this, [this] {
        if (const auto counters = m_player.RefreshCounters())
            showCounters(*counters);
    });
    hidden(u"Timer"_s, u"0"_s).onChange = [this](const QString &interval) {
        const int milliseconds = interval.toInt();
        milliseconds > 0 ? m_counter.start(milliseconds) : m_counter.stop();
    };
    hidden(u"Command8"_s, {}, [this] { playCalled(); });
    auto *columns = new QHBoxLayout;
    columns->setSpacing(look::gap);
    auto *films = pageCard();
    noteWhenFree(*films,
                 u"Pas encore de film sur cette page :\ndouble-cliquez sur un emplacement, ou déposez-y un film."_s);
    columns->addWidget(films, 1);
    auto *side = new QVBoxLayout;
    side->setSpacing(look::gap);
    side->addWidget(playerCard());
    side->addStretch(1);
    side->addWidget(deletionCard());
    columns->addLayout(side);
    page()->addLayout(columns);
    setMinimumWidth(860);
    m_player.SeekStep = 5;
    m_player.changedByHand = [this] { followHand(); };
    gallery.open();
    showSelection();
    slotWidget(1)->setFocus();
    if (main)
        main->putAway();
}

FrmMain::~FrmMain()
{
    m_player.changedByHand = [] {};
}

QWidget *FrmMain::pageCard()
{
    auto *head = new QHBoxLayout;
    head->addWidget(leap(u"Label1"_s, u"Page N°:"_s, u"Avancer de 2 minutes et demie"_s,
                         [this] { m_player.SeekForward(seekLeap); }));
    head->addWidget(pageNumber());
    head->addStretch(1);
    head->addWidget(
        leap(u"Label2"_s, u"Vidéo N°:"_s, u"Reculer de 2 minutes et demie"_s, [this] { m_player.SeekBack(seekLeap); }));
    auto *number = slotNumber();
    number->setMinimumWidth(26);
    head->addWidget(number);
    auto *foot = new QHBoxLayout;
    button(u"Command4"_s, u"Page précédente"_s, [this] { turnPage(-1); })->setToolTip(u"Page préc."_s);
    button(u"Command3"_s, u"Page suivante"_s, [this] { turnPage(1); })->setToolTip(u"Page suiv."_s);
    for (const QString &each : {u"Command4"_s, u"Command3"_s})
        foot->addWidget(static_cast<WidgetControl *>(control(each))->widget());
    foot->insertStretch(1, 1);
    auto *layout = new QVBoxLayout;
    layout->addLayout(head);
    layout->addLayout(slotRows());
    layout->addWidget(
        styled(u"Un clic lit la vidéo, un double clic en choisit une autre. Un fichier peut aussi être glissé "
               "sur son emplacement."_s,
               "hint"));
    layout->addLayout(foot);
    return card({}, layout);
}

QLayout *FrmMain::slotRows()
{
    m_rows = new QGridLayout;
    m_rows->setSpacing(0);
    m_rows->setHorizontalSpacing(4);
    m_marker = add(u"Label5"_s, new Label);
    m_marker->setFixedSize(14, look::rowHeight + 2);
    m_rows->addWidget(m_marker, 0, 0);
    for (int slot = 1; slot <= media::films.slotCount; ++slot) {
        m_rows->addWidget(styled(QString::number(slot), "place"), slot - 1, 1, Qt::AlignRight | Qt::AlignVCenter);
        m_rows->addWidget(addSlot(u"Label4"_s, new FilmSlot), slot - 1, 2);
    }
    m_rows->setColumnMinimumWidth(0, 14);
    m_rows->setColumnStretch(2, 1);
    return m_rows;
}

QWidget *FrmMain::playerCard()
{
    auto *handle = add(u"Label3"_s, new DragHandle(u"Commandes lecteur:"_s));
    handle->setObjectName(u"caption"_s);
    handle->setCursor(Qt::SizeAllCursor);
    auto *layout = new QVBoxLayout;
    layout->addWidget(handle);
    layout->addLayout(transport());
    const auto wide = [&](const QString &name, const QString &caption, std::function<void()> handler) {
        layout->addWidget(button(name, caption, std::move(handler)));
    };
    wide(u"Command10"_s, u"Vidéo précédente"_s, [this] { step(&media::Gallery::stepBack); });
    wide(u"Command9"_s, u"Vidéo suivante"_s, [this] { step(&media::Gallery::stepForward); });
    layout->addSpacing(look::gap);
    auto *state = add(u"lblCaption"_s, new Label(qt(m_player.state())));
    state->setObjectName(u"large"_s);
    state->setAlignment(Qt::AlignCenter);
    layout->addWidget(state);
    for (const QString &counter : {u"lblTime"_s, u"lblFrame"_s, u"lbl"_s})
        layout->addWidget(add(counter, new Label));
    showCounters(media::idleCounters);
    auto *made = card({}, layout);
    made->setFixedWidth(230);
    return made;
}

QLayout *FrmMain::transport()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(
        sign(u"Command6"_s, QStyle::SP_MediaSeekBackward, u"Reculer"_s, [this] { m_player.SeekBack(seekStep); }));
    row->addWidget(sign(u"Command1"_s, QStyle::SP_MediaPlay, u"Lire la vidéo"_s, [this] { playSelected(); }));
    row->addWidget(sign(u"Command7"_s, QStyle::SP_MediaPause, u"Pause"_s, [this] { pause(); }));
    row->addWidget(
        sign(u"Command5"_s, QStyle::SP_MediaSeekForward, u"Avancer"_s, [this] { m_player.SeekForward(seekStep); }));
    row->addWidget(button(u"Command2"_s, u"Stop"_s, [this] { stop(); }), 1);
    return row;
}

QWidget *FrmMain::deletionCard()
{
    auto *layout = new QVBoxLayout;
    auto *one = button(u"Command11"_s, u"Supprimer selection"_s, [this] { gallery.emptySelected(); });
    one->setToolTip(u"Libère l'emplacement (Suppr) ; le fichier reste sur le disque"_s);
    auto *all = button(u"Command12"_s, u"Supprimer page"_s, [this] { gallery.emptyPage(); });
    all->setToolTip(u"Libère tous les emplacements de la page ; les fichiers restent sur le disque"_s);
    layout->addWidget(one);
    layout->addWidget(all);
    return card({}, layout);
}

Button *FrmMain::sign(const QString &name, QStyle::StandardPixmap picture, const QString &tip,
                      std::function<void()> handler)
{
    auto *made = button(name, {}, std::move(handler));
    made->setIcon(look::sign(style()->standardIcon(picture)));
    made->setToolTip(tip);
    made->setFixedWidth(34);
    return made;
}

Label *FrmMain::leap(const QString &name, const QString &caption, const QString &tip, std::function<void()> seek)
{
    auto *made = command(name, caption, std::move(seek));
    made->setToolTip(tip);
    return made;
}

void FrmMain::showSlot(int slot, const std::string &path)
{
    const QString shown = path.empty() ? freeSlot : qt(path);
    setText(u"Label4"_s, shown, slot);
    slotWidget(slot)->setToolTip(path.empty() ? QString() : shown);
}

void FrmMain::showSelected(int slot, bool selected)
{
    control(u"Label4"_s, slot)->setBack(selected ? std::optional(look::chosen) : std::nullopt);
    if (!selected)
        return;
    m_marker->setText(u"►"_s);
    m_rows->removeWidget(m_marker);
    m_rows->addWidget(m_marker, slot - 1, 0);
    m_rows->activate();
}

// Cancelled, the slot is written and played as it was.
std::optional<std::string> FrmMain::askForFile(int slot)
{
    m_clicked->stop(); // the choice may take longer than its moment
    const std::string now = text(u"Label4"_s, slot).toStdString();
    return results::chooseFilmFile(context.dialogs, "Vidéo", now).value_or(now);
}

void FrmMain::slotFiled()
{
    press(u"Command2"_s);
    m_clicked->stop();
    press(u"Command1"_s);
}

void FrmMain::step(void (media::Gallery::*by)())
{
    press(u"Command2"_s);
    (gallery.*by)();
    showSelection();
    press(u"Command1"_s);
}

void FrmMain::playSelected()
{
    showSelection();
    const auto slot = gallery.selected();
    if (slot && m_player.IsPlaying)
        context.dialogs.message("Lecture en cours...");
    else if (slot)
        play(text(u"Label4"_s, *slot));
}

// What the caption of Command8 names, whatever the slots show.
void FrmMain::playCalled()
{
    if (m_player.IsPlaying)
        return context.dialogs.message("Lecture en cours...");
    play(text(u"Command8"_s));
}

void FrmMain::play(const QString &path)
{
    const std::string stored = path.toStdString(), found = context.main.surroundings.findFile(stored);
    m_player.setMedia(found.empty() ? stored : found);
    m_player.OpenMedia();
    m_player.PlayMedia();
    m_player.ReadMilliseconds();
    m_player.ReadFrames();
    runCounter(true);
    m_player.PlayMedia();
    showState();
}

void FrmMain::pause()
{
    m_player.PauseMedia();
    runCounter(false);
    showState();
}

void FrmMain::stop()
{
    m_player.CloseMedia();
    runCounter(false);
    showCounters(media::idleCounters);
    showState();
}

void FrmMain::runCounter(bool on)
{
    setText(u"Timer"_s, on ? u"1"_s : u"0"_s);
}

void FrmMain::showCounters(const media::Counters &counters)
{
    setText(u"lblTime"_s, qt(counters.time));
    setText(u"lblFrame"_s, qt(counters.frames));
    setText(u"lbl"_s, qt(counters.frame));
}

// Somebody used the controls on the film itself, or closed its window.
void FrmMain::followHand()
{
    runCounter(m_player.IsPlaying);
    showState();
    if (m_player.state() == media::noMedia)
        showCounters(media::idleCounters);
}

void FrmMain::closing()
{
    gallery.keepPage();
    press(u"Command2"_s);
    m_player.letGo();
    if (Screen *main = context.screens.find(u"Form1"_s))
        main->setText(u"Command14"_s, u"Galerie Vidéo"_s);
    context.screens.bringMainBack();
}

}

ScreenRows frmmain()
{
    return {screenRow<FrmMain>(u"frmmain"_s, u"Galerie Vidéo"_s)};
}

}
