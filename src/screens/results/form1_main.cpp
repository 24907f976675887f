// SPDX-License-Identifier: GPL-3.0-or-later
#include "screens/results/form1_main.h"

#include "kinds/display_mode.h"
#include "kinds/entry_screen.h"
#include "kinds/name_search.h"
#include "kinds/page_view.h"
#include "kinds/picker.h"
#include "results/amending.h"
#include "results/media_of_grand_prix.h"
#include "results/navigation.h"
#include "results/new_season.h"
#include "results/options.h"
#include "results/race_entry.h"
#include "results/recording.h"
#include "results/simulation.h"
#include "screens/results/form1_side_screens.h"
#include "shell/look.h"
#include "statistics/season_statistics.h"

#include <QKeyEvent>
#include <QScreen>

namespace circuidex::screens {

Form1::Form1(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, theContext.store.readOnly() ? title + u"(lecture seule)"_s : title, Chrome::mainWindow),
      m_main(theContext.main)
{
    setMouseTracking(true);
    registerHidden();
    registerShortcuts();
    layOut();
    followEntry();
    listen(m_main.gp, [this](const std::string &typed) { gpTyped(typed); });
    for (Field *of : {&m_main.gp, &m_main.an})
        listen(*of, [this](const std::string &) {
            m_main.said.set("");
            showAgeOfStatus();
        });
    listen(m_main.an, [this](const std::string &) { showSteps(); });
    m_main.clearTotalsSoon = [this](const std::string &season) { clearTotalsSoon(qt(season)); };
    context.store.history().finish = [this] { finishActions(); };
    context.screens.onChange = [this](const QString &screen, bool open) { screenChanged(screen, open); };
    comeBack();
    standWhereLeft();
    connect(screen(), &QScreen::availableGeometryChanged, this, &Form1::displayChanged);
    start();
}

// What opening the program does: the marked season, the mode of the display, the season's last Grand Prix, scale, "nogp"
// and skin; then the start-up notice.
void Form1::start()
{
    if (results::openMarkedSeason(m_main))
        context.screens.open(u"Form46"_s);
    const DisplayMode mode = context.platform.displayMode();
    results::saveDisplay(m_main.writableSeason(), {mode.width, mode.height, mode.depth});
    if (results::adaptsDisplay(m_main.season()))
        adapt();
    results::openOnLastRecorded(m_main);
    showSteps();
    context.skin = skinNamed(results::chosenSkin(context.store));
    dress();
    fetchNotice(context, u"//progload2.htm"_s, this);
    context.screens.close(u"Intro"_s);
}

void Form1::adapt()
{
    adaptDisplay(context);
    if (seen()) // and not behind the first start
        comeBack();
}

void Form1::registerHidden()
{
    const auto press = [this](const QString &name, const QString &caption, std::function<void()> handler) {
        hidden(name, caption, std::move(handler));
    };
    press(u"Command5"_s, u"Enregistrer le Grand Prix"_s, [this] { record(); });
    press(u"Command10"_s, u""_s, {});
    press(u"Command12"_s, u""_s, {});
    press(u"Command17"_s, u""_s, [this] { go(results::showGrandPrix); });
    press(u"Command23"_s, u"enregistrer modifs"_s, [this] { amend(false); });
    press(u"Command27"_s, u"enregistrement spécial pour émulations"_s, [this] {
        if (results::recordSimulatedGrandPrix(m_main) == results::Recording::done)
            showPodium();
    });
    press(u"Command14"_s, u"Galerie Vidéo"_s, [this] {
        if (context.screens.open(u"frmmain"_s))
            putAway();
    });
    press(u"Command18"_s, u"Journal"_s, [this] { context.screens.open(u"Form28"_s); });
    for (const QString &covered : {u"Command1"_s, u"Command4"_s, u"Command6"_s, u"Command7"_s, u"Command13"_s, u"Command19"_s, u"Command22"_s})
        press(covered, qt(sideScreenOf(covered.toStdString())->caption), [this, covered] { pressToggle(covered); });

    const auto keep = [this](const QString &name, Field &field, std::optional<int> index = std::nullopt) {
        hidden(name, field, index);
    };
    keep(u"Label40"_s, m_main.Label40);
    keep(u"Labell"_s, m_main.Labell);
    keep(u"Label50"_s, m_main.Label50);
    keep(u"a"_s, m_main.a);
    keep(u"pol"_s, m_main.pol);
    keep(u"vic"_s, m_main.vic);
    keep(u"pts"_s, m_main.pts);
    keep(u"lblrec"_s, m_main.lblrec);
    for (int place = 1; place <= classifiedPlaces; ++place)
        keep(u"ptspilot"_s, m_main.ptspilot[place], place - 1);
    hidden(u"iMg"_s);
    hidden(u"Image6"_s).onHover = [this] { unpoint(); };

    using Kind = TimerControl::Kind;
    m_records = &timer(u"Timerrecords"_s, 0, Kind::once, [this] {
        sortTimeLists();
        context.screens.close(u"Form32"_s);
        context.screens.close(u"Form4"_s);
    });
    m_newSeason = &timer(u"Timer55"_s, 0, Kind::once, [this] { clearNewSeason(); });
    m_lap = &timer(u"Timerlap"_s, 0, Kind::once, [this] { showCircuitLarge(); });
    m_img = &timer(u"Timerimg"_s, 0, Kind::once, [this] { showLarge(m_main.Image2); });
    m_vid = &timer(u"Timervid"_s, 0, Kind::once, [this] { playFilm(); });
}

// The pointer is over the background: all command labels are black again.
void Form1::unpoint()
{
    for (const QString &name : m_pointed)
        control(name)->setFore(look::unpointed);
}

void Form1::mouseMoveEvent(QMouseEvent *event)
{
    Screen::mouseMoveEvent(event);
    control(u"Image6"_s)->hover();
}

// Opens the side screen of a button, or closes it, as the caption says. A menu first closes the other five.
void Form1::pressToggle(const QString &name)
{
    const SideScreen &side = *sideScreenOf(name.toStdString());
    if (name == u"Command4")
        results::clearTeamlessPoints(m_main.writableSeason());
    if (side.menu)
        for (const SideScreen &other : sideScreens)
            if (other.menu && &other != &side)
                context.screens.close(qt(other.screen));
    if (text(name) == qt(side.openCaption)) {
        context.screens.close(qt(side.screen));
        return;
    }
    const Waiting waiting(*this);
    if (name == u"Command7")
        m_main.refreshScale();
    if (context.screens.open(qt(side.screen)))
        setText(name, qt(side.openCaption)); // also where it was open under a plain caption
}

void Form1::screenChanged(const QString &screen, bool open)
{
    for (const SideScreen &side : sideScreens)
        if (screen == qt(side.screen))
            setText(qt(side.button), qt(open ? side.openCaption : side.caption));
    if (!open)
        showSteps();
    if (!open && std::ranges::count(alsoSetBack, screen.toStdString()) > 0)
        setText(qt(placesButton), qt(sideScreenOf(placesButton)->caption));
}

void Form1::openDriverList(const QString &reason)
{
    openPicker(context.screens, PickList::drivers, reason);
}

void Form1::gpTyped(const std::string &typed)
{
    if (typed != "kkkkk")
        return;
    context.dialogs.message("TEST gp_Change() N°16");
    context.screens.open(u"Form19"_s);
    m_main.gp.set("");
}

void Form1::showPodium()
{
    Screen *podium = context.screens.open(u"Form12"_s);
    for (int place = 1; podium && place <= 3; ++place)
        podium->setText(u"Label%1"_s.arg(6 + place), qt(m_main.number(place).text()));
}

void Form1::afterResult()
{
    showSteps();
    showPodium();
    context.screens.close(u"Form32"_s);
    m_sorting = std::make_unique<Action>(context.store, std::string_view());
    m_records->tag = u"à trier"_s;
    m_records->start(10);
    showEntry();
}

void Form1::sortTimeLists()
{
    m_records->tag.clear();
    statistics::sortAllTimeLists(context.store);
    m_sorting.reset();
}

// What a timer would still do after an action would come behind its undo.
void Form1::finishActions()
{
    if (!m_records->tag.isEmpty()) {
        m_records->stop();
        sortTimeLists();
    }
    if (!m_newSeason->tag.isEmpty())
        clearNewSeason();
}

void Form1::record()
{
    const Waiting waiting(*this);
    finishActions();
    const Action undoable(context.store, m_main.actionOnRace("enregistrement")); // with the lists sorted by it
    if (results::recordGrandPrix(m_main) != results::Recording::done)
        return;
    m_recordedGp = m_main.gp.text();
    m_recordedSeason = m_main.an.text();
    showAgeOfStatus();
    afterResult();
}

void Form1::amend(bool byUser)
{
    if (byUser && !typedHolds())
        return;
    const Waiting waiting(*this);
    finishActions();
    const Action undoable(context.store, m_main.actionOnRace("modification"));
    const auto amendment = byUser ? results::Amendment::byUser : results::Amendment::byProgram;
    if (results::amendGrandPrix(m_main, amendment) == results::Recording::done)
        afterResult();
    context.screens.close(u"Form4"_s);
}

void Form1::cancel()
{
    const Waiting waiting(*this);
    results::cancelGrandPrix(m_main);
    showAgeOfStatus();
    showEntry();
}

// The grid first, unseen behind its assistant, then the result: Form49 leads on to Form40, which presses Command5.
void Form1::startAssistant()
{
    if (!results::mayStartAssistant(m_main))
        return;
    context.screens.close(u"Form48"_s); // it may show another race, or hold edits
    if (Screen *grid = context.screens.open(u"Form48"_s))
        grid->putAway(160000);
    showMinimized();
    context.screens.open(u"Form49"_s);
}

void Form1::filmClicked()
{
    if (m_main.film.empty()) {
        m_vid->stop();
        results::chooseFilm(m_main);
    } else {
        m_vid->start(250);
    }
}

// A viewer that is open already takes the picture and the name too.
const Screen *Form1::showLarge(const Field &picture)
{
    const Screen *viewer = context.screens.open(u"Form13"_s);
    if (!viewer)
        return nullptr;
    viewer->setText(u"Image1"_s, qt(picture.text()));
    for (const QString &named : {u"Label1"_s, u"Label11"_s})
        viewer->setText(named, qt(m_main.gp.text()));
    return viewer;
}

void Form1::showCircuitLarge()
{
    const Screen *viewer = showLarge(m_main.Image1);
    if (!viewer)
        return;
    viewer->press(u"Command3"_s);
    viewer->setText(u"Command3"_s, u"Taille réele."_s);
}

void Form1::playFilm()
{
    Screen *gallery = context.screens.open(u"frmmain"_s);
    if (!gallery)
        return;
    gallery->setText(u"Command8"_s, qt(results::filmAtHand(m_main)));
    gallery->press(u"Command8"_s);
}

// A passage before that is still waiting isn't forgotten.
void Form1::clearTotalsSoon(const QString &season)
{
    if (!m_newSeason->tag.isEmpty())
        clearNewSeason();
    m_newSeason->tag = season;
    m_clearing = std::make_unique<Action>(context.store, std::string_view());
    m_newSeason->start(500);
}

// The timer's tag says which season was passed to: another one may be open by now.
void Form1::clearNewSeason()
{
    const QString season = std::exchange(m_newSeason->tag, {});
    m_newSeason->stop();
    results::clearTotals(season.isEmpty() ? m_main.writableSeason() : WritableSeason(context.store, season.toStdString()));
    m_clearing.reset();
}

void Form1::comeBack()
{
    setWindowState(Qt::WindowNoState);
    m_given = room().size().boundedTo(QSize(1400, 900));
    resize(m_given);
    setPlace(0, 0);
}

// The system tells it some time after a change of the mode. A window that the user has pulled stays as it is, as long as
// it is whole on the display.
void Form1::displayChanged()
{
    const bool fits = size() != m_given && room().contains(frameGeometry());
    if (seen() && !isMinimized() && !isMaximized() && !fits)
        comeBack();
}

void Form1::registerShortcuts()
{
    struct Presses {
        QKeySequence keys;
        QString control, does;
    };
    const Presses presses[] = {
        {Qt::Key_PageDown, u"Command8"_s, u"Grand Prix suivant"_s},
        {Qt::Key_PageUp, u"Command9"_s, u"Grand Prix précédent"_s},
        {Qt::CTRL | Qt::Key_PageDown, u"Command28"_s, u"Saison suivante"_s},
        {Qt::CTRL | Qt::Key_PageUp, u"Command29"_s, u"Saison précédente"_s},
        {Qt::Key_F5, u"Label12"_s, u"Afficher le Grand Prix nommé"_s},
        {Qt::CTRL | Qt::Key_N, u"Label36"_s, u"Aller au premier Grand Prix à enregistrer"_s},
        {Qt::CTRL | Qt::Key_E, u"Command26"_s, u"Enregistrer un Grand-Prix, nom par nom"_s},
        {Qt::CTRL | Qt::Key_S, u"Label43"_s, u"Enregistrer les modifications du Grand Prix affiché"_s},
        {Qt::CTRL | Qt::Key_G, u"Command30"_s, u"Grille de départ du Grand Prix affiché"_s},
        {Qt::CTRL | Qt::Key_H, u"historique"_s, u"Historique des actions"_s},
    };
    for (const auto &[keys, control, does] : presses)
        shortcut(
            keys,
            [this, control = control] {
                if (typedHolds())
                    press(control);
            },
            does);
    tellKey(u"Flèche gauche, flèche droite"_s, u"Grand Prix précédent, suivant (hors des champs)"_s);
}

// Only a window taller than the display that the columns are made for has room for that card.
void Form1::resizeEvent(QResizeEvent *event)
{
    constexpr int madeFor = 768; // pixels
    Screen::resizeEvent(event);
    if (!m_display)
        return;
    m_display->setMinimumHeight(m_display->sizeHint().height()); // its words wrap, and none is cut off
    m_display->setVisible(height() >= madeFor + m_display->minimumHeight());
}

// Outside the fields, where they move the text cursor.
void Form1::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Right)
        press(u"Command8"_s);
    else if (event->key() == Qt::Key_Left)
        press(u"Command9"_s);
    else
        Screen::keyPressEvent(event);
}

// A name typed by hand finds its driver, and his number follows; an emptied box is nobody. A name that nobody bears, or
// several, is refused.
void Form1::nameTyped(Edit *box, Field &number, Field &name)
{
    const QString typed = box->text().trimmed();
    box->setModified(false);
    m_main.said.set("");
    QStringList drivers;
    for (int slot = 1; slot <= driverSlots; ++slot)
        drivers << qt(m_main.season().nom(slot));
    const auto found = onlyHit(drivers, typed);
    if (typed.isEmpty() || found)
        number.set(found ? std::to_string(*found + 1) : std::string());
    name.set(m_main.season().nom(number.text()));
    if (!typed.isEmpty() && !found)
        refuse(box, typed);
}

void Form1::refuse(Edit *box, const QString &typed)
{
    m_main.said.set(u"« %1 » : aucun pilote, ou plusieurs, en %2"_s.arg(typed, qt(m_main.an.text())).toStdString());
    setMark(*box, "refused", true);
}

// What acts on the race takes a name that is still being typed first; false when it is refused.
bool Form1::typedHolds()
{
    auto *box = qobject_cast<QLineEdit *>(focusWidget());
    if (!box || !box->isModified())
        return true;
    emit box->editingFinished();
    return !box->property("refused").toBool();
}

// "Grand prix enregistré!" stays until the next recording; grey, it speaks of a race that isn't on show any more, or that
// was cancelled.
void Form1::showAgeOfStatus()
{
    const bool holds = m_main.gp.text() == m_recordedGp && m_main.an.text() == m_recordedSeason &&
        results::hasResult(m_main.season(), m_recordedGp);
    control(u"Label11"_s)->setFore(holds || m_main.Label11.empty() ? std::nullopt : std::optional(look::quiet));
    static_cast<WidgetControl *>(control(u"Label11"_s))->widget()->setToolTip(qt(m_recordedGp + " " + m_recordedSeason).trimmed());
}

// Another race or season: what was typed of this one and isn't stored waits to be taken up again.
void Form1::go(void (*where)(results::MainRecord &))
{
    const Waiting waiting(*this);
    results::leaveRace(m_main);
    where(m_main);
    showEntry();
}

void Form1::followEntry()
{
    m_entered = &timer(u"Timersaisie"_s, 0, TimerControl::Kind::once, [this] { showEntry(); });
    shape(u"saisie"_s).textNow = [this] { return results::unsavedRace(m_main) ? u"à enregistrer"_s : QString(); };
    const auto follow = [this](Field &field) {
        listen(field, [this](const std::string &) {
            if (!m_entered->pending())
                m_entered->start(30);
        });
    };
    for (Field *field : {&m_main.Text39, &m_main.Text41, &m_main.dat, &m_main.an})
        follow(*field);
    for (int place = 1; place <= classifiedPlaces; ++place)
        follow(m_main.number(place));
    listen(m_main.left.changed, [this](const std::string &) { showLeft(); });
    showLeft();
}

// The mark on what stores the entry, and what looks wrong in it.
void Form1::showEntry()
{
    const bool unsaved = results::unsavedRace(m_main), recorded = results::recordedRace(m_main);
    m_recordMark->setOn(unsaved && !recorded);
    m_amendMark->setOn(unsaved && recorded);
    const results::LeftEntry *onShow = m_main.entry.thing();
    m_warning->show(
        results::raceWarnings(m_main, m_main.season(), onShow ? std::string_view(onShow->subject) : std::string_view()));
}

// What waits, the one left last.
void Form1::showLeft()
{
    const results::LeftEntry *last = m_main.left.last();
    for (Label *label : {m_left, m_forget})
        label->setVisible(last);
    if (!last)
        return;
    QString title = qt(last->screen);
    for (const ScreenRow &row : context.screens.rows())
        if (row.name == title && last->screen != "Form1")
            title = row.title;
    const QStringList about{last->screen == "Form1" ? u"Grand Prix"_s : title, qt(last->subject), qt(last->season)};
    m_left->setToolTip(u"Pas enregistré : %1"_s.arg(about.join(u' ').simplified()));
}

void Form1::resume()
{
    const auto left = m_main.left.take();
    if (!left)
        return;
    if (left->screen == "Form1") {
        results::leaveRace(m_main);
        results::resumeRace(m_main, *left);
        return showEntry();
    }
    if (!left->season.empty() && left->season != m_main.an.text()) {
        results::leaveRace(m_main);
        m_main.an.set(left->season);
        results::showSeason(m_main);
    }
    m_main.left.resuming = &*left;
    if (auto *screen = dynamic_cast<EntryScreen *>(context.screens.open(qt(left->screen))))
        screen->resume(*left);
    m_main.left.resuming = nullptr;
}

// The way out of the program, up to the screen that ends it and that closes this one.
void Form1::leave()
{
    if (isYear(m_main.an.text())) // anything else would open on nothing
        context.store.setYearMarker(m_main.an.text());
    context.screens.close(u"Form8"_s);
    context.screens.open(u"Form47"_s);
}

// The same for whoever closes the window, and what timers still had to do. The display comes last: what the screens keep
// is kept by then.
void Form1::closing()
{
    finishActions();
    leave();
    if (const auto running = results::runningSimulation(context.store)) // also one that a kill left
        results::stopSimulation(m_main, *running);
    context.store.history().finish = {};
    m_main.clearTotalsSoon = {};
    context.screens.onChange = {};
    context.screens.closeAllBut({u"Form47"_s});
    restoreDisplay(context);
}

ScreenRows form1()
{
    return {screenRow<Form1>(u"Form1"_s, u" .:Circuidex:. "_s)};
}

}
