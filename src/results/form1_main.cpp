#include "results/form1_main.h"

#include "platform/platform.h"
#include "results/amending.h"
#include "results/form26_pickers.h"
#include "results/media_of_grand_prix.h"
#include "results/navigation.h"
#include "results/new_season.h"
#include "results/recording.h"
#include "results/side_screens.h"
#include "shell/look.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

namespace circuidex {

Form1::Form1(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title, Chrome::mainWindow), m_main(theContext.main)
{
    setMouseTracking(true);
    registerHidden();
    layOut();
    listen(m_main.gp, [this](const std::string &typed) { gpTyped(typed); });
    context.screens.onChange = [this](const QString &screen, bool open) { screenChanged(screen, open); };
    comeBack();
    start();
}

// What opening the program does: the marked season, its last Grand Prix, scale, "nogp" and skin.
void Form1::start()
{
    if (openMarkedSeason(m_main))
        context.screens.open(QStringLiteral("Form46"));
    openOnLastRecorded(m_main);
    context.skin = skinNamed(context.store.LireINI(keys::galerie, "skin", "couleur"));
    dress();
}

void Form1::registerHidden()
{
    const auto press = [this](std::string_view name, std::string_view caption, std::function<void()> handler) {
        hidden(qt(name), qt(caption), std::move(handler));
    };
    press("Command5", "Enregistrer le Grand Prix", [this] { record(); });
    press("Command10", "", {});
    press("Command12", "", {});
    press("Command17", "", [this] { showGrandPrix(m_main); });
    press("Command23", "enregistrer modifs", [this] { amend(false); });
    press("Command27", "enregistrement spécial pour émulations", [this] {
        if (recordSimulatedGrandPrix(m_main) == Recording::done)
            showPodium();
    });
    press("Command14", "Galerie Vidéo", [this] {
        if (context.screens.open(QStringLiteral("frmmain")))
            setPlace(0, 50000);
    });
    press("Command18", "Journal", [this] { context.screens.open(QStringLiteral("Form28")); });
    for (const char *covered : {"Command1", "Command4", "Command6", "Command7", "Command13", "Command19", "Command22"})
        press(covered, sideScreenOf(covered)->caption, [this, covered] { pressToggle(qt(covered)); });

    const auto keep = [this](const char *name, Field &field, std::optional<int> index = std::nullopt) {
        hidden(qt(name), field, index);
    };
    keep("Label40", m_main.Label40);
    keep("Labell", m_main.Labell);
    keep("Label50", m_main.Label50);
    keep("a", m_main.a);
    keep("pol", m_main.pol);
    keep("vic", m_main.vic);
    keep("pts", m_main.pts);
    keep("lblrec", m_main.lblrec);
    for (int i = 0; i < classifiedPlaces; ++i)
        keep("ptspilot", m_main.ptspilot[static_cast<std::size_t>(i)], i);
    hidden(QStringLiteral("iMg"));
    hidden(QStringLiteral("Image6")).onHover = [this] { unpoint(); };

    using Kind = TimerControl::Kind;
    m_records = &timer(QStringLiteral("Timerrecords"), 0, Kind::once, [this] {
        for (const char *list : {"Command13", "Command14", "Command15"})
            if (Screen *statistics = context.screens.openUnseen(QStringLiteral("Form32")))
                statistics->press(qt(list));
        context.screens.close(QStringLiteral("Form32"));
        context.screens.close(QStringLiteral("Form4"));
    });
    m_newSeason = &timer(QStringLiteral("Timer55"), 0, Kind::once, [this] { clearNewSeason(); });
    m_lap =
        &timer(QStringLiteral("Timerlap"), 0, Kind::once, [this] { context.screens.open(QStringLiteral("Form13")); });
    m_img =
        &timer(QStringLiteral("Timerimg"), 0, Kind::once, [this] { context.screens.open(QStringLiteral("Form13")); });
    m_vid = &timer(QStringLiteral("Timervid"), 0, Kind::once, [this] { playFilm(); });
}

// The pointer is over the background: all command labels are black again.
void Form1::unpoint()
{
    for (const QString &name : m_pointed)
        control(name)->setFore(QColor(Qt::black));
}

void Form1::mouseMoveEvent(QMouseEvent *event)
{
    Screen::mouseMoveEvent(event);
    control(QStringLiteral("Image6"))->hover();
}

// Opens the side screen of a button, or closes it. A menu first closes the other five.
void Form1::pressToggle(const QString &name)
{
    const SideScreen &side = *sideScreenOf(name.toStdString());
    if (name == u"Command4") // what finishers without a team left behind
        m_main.season().write(keys::N, "ptsecurie", "0");
    if (side.menu)
        for (const SideScreen &other : sideScreens)
            if (other.menu && &other != &side)
                context.screens.close(qt(other.screen));
    if (context.screens.isOpen(qt(side.screen))) {
        context.screens.close(qt(side.screen));
        return;
    }
    const Waiting waiting(*this);
    if (name == u"Command7")
        m_main.refreshScale();
    context.screens.open(qt(side.screen));
}

void Form1::screenChanged(const QString &screen, bool open)
{
    for (const SideScreen &side : sideScreens)
        if (screen == qt(side.screen))
            setText(qt(side.button), qt(open ? side.openCaption : side.caption));
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
    context.screens.open(QStringLiteral("Form19"));
    m_main.gp.set("");
}

void Form1::showPodium()
{
    Screen *podium = context.screens.open(QStringLiteral("Form12"));
    for (int place = 1; podium && place <= 3; ++place)
        podium->setText(QStringLiteral("Label%1").arg(6 + place), qt(m_main.number(place).text()));
}

void Form1::afterResult()
{
    showPodium();
    context.screens.close(QStringLiteral("Form32"));
    m_records->start(10);
}

void Form1::record()
{
    const Waiting waiting(*this);
    if (recordGrandPrix(m_main) == Recording::done)
        afterResult();
}

void Form1::amend(bool byUser)
{
    const Waiting waiting(*this);
    amendGrandPrix(m_main, byUser ? Amendment::byUser : Amendment::byProgram);
    afterResult();
    context.screens.close(QStringLiteral("Form4"));
}

void Form1::cancel()
{
    const Waiting waiting(*this);
    cancelGrandPrix(m_main);
}

// The grid first, unseen behind its assistant, then the result: Form49 leads on to Form40, which presses Command5.
void Form1::startAssistant()
{
    if (!mayStartAssistant(m_main))
        return;
    context.screens.close(QStringLiteral("Form48")); // it may show another race, or hold edits
    if (Screen *grid = context.screens.open(QStringLiteral("Form48")))
        grid->setPlace(0, 160000);
    showMinimized();
    context.screens.open(QStringLiteral("Form49"));
}

void Form1::filmClicked()
{
    if (m_main.film.empty()) {
        m_vid->stop();
        chooseFilm(m_main);
    } else {
        m_vid->start(250);
    }
}

void Form1::playFilm()
{
    if (Screen *gallery = context.screens.open(QStringLiteral("frmmain"))) {
        gallery->setText(QStringLiteral("Command8"), qt(filmPath(m_main)));
        gallery->press(QStringLiteral("Command8"));
        return;
    }
    context.platform.play(m_main.surroundings.findFile(filmPath(m_main)));
}

// A passage before that is still waiting isn't forgotten.
void Form1::clearTotalsSoon(const QString &season)
{
    if (!m_newSeason->tag.isEmpty())
        clearNewSeason();
    m_newSeason->tag = season;
    m_newSeason->start(500);
}

// The timer's tag says which season was passed to: another one may be open by now.
void Form1::clearNewSeason()
{
    const QString season = std::exchange(m_newSeason->tag, {});
    clearTotals(season.isEmpty() ? m_main.season() : Season(context.store, season.toStdString()));
}

void Form1::comeBack()
{
    setWindowState(Qt::WindowNoState);
    setPlace(0, 0);
    const QRect display = QGuiApplication::primaryScreen()->availableGeometry();
    resize(QSize(1024, 768).expandedTo(QSize(std::min(display.width(), 1400), std::min(display.height(), 900))));
}

void Form1::keyPressEvent(QKeyEvent *event)
{
    const bool control = event->modifiers() == Qt::ControlModifier;
    const auto pressed = [this](const char *name) { press(qt(name)); };
    switch (event->key()) {
    case Qt::Key_PageDown:
        return pressed(control ? "Command28" : "Command8");
    case Qt::Key_PageUp:
        return pressed(control ? "Command29" : "Command9");
    case Qt::Key_Right:
        return pressed("Command8");
    case Qt::Key_Left:
        return pressed("Command9");
    case Qt::Key_F5:
        return pressed("Label12");
    default:
        break;
    }
    if (control && event->key() == Qt::Key_N)
        return pressed("Label36");
    if (control && event->key() == Qt::Key_E)
        return pressed("Command26");
    if (control && event->key() == Qt::Key_S)
        return pressed("Label43");
    if (control && event->key() == Qt::Key_G)
        return pressed("Command30");
    Screen::keyPressEvent(event);
}

void Form1::closing()
{
    if (!m_newSeason->tag.isEmpty())
        clearNewSeason();
    context.store.setYearMarker(m_main.an.text());
    context.screens.onChange = {};
    for (const QString &name : context.screens.openNames())
        context.screens.close(name);
}

}
