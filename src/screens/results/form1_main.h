#pragma once
// Form1, the main screen: one Grand Prix of one season, the way through Grands Prix and seasons, and the buttons that open
// everything else. Its buttons are pressed by other screens too, some of them by nobody else.
#include "results/main_record.h"
#include "shell/screens.h"
#include "store/history.h"

namespace circuidex::screens {

class Form1 : public Screen {
public:
    Form1(Context &context, const QString &name, const QString &title);

    // Back in sight after a screen that took its place: in its normal state, at the top left, as large as the display.
    void comeBack() override;

protected:
    void closing() override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void registerHidden();
    void registerShortcuts();
    void layOut();
    QWidget *selectionCard();
    QWidget *raceNumber();
    QLayout *selectionCommands();
    QWidget *resultCard();
    QWidget *remarkCard();
    QWidget *picturesCard();
    void addFilm(QVBoxLayout *layout);
    QWidget *grandPrixCommands();
    QWidget *windowCommands();
    QWidget *footer();
    QWidget *addresses();
    QWidget *displayCard();

    Edit *edit(const QString &name, Field &field, int width, const QString &tip);
    void nameTyped(Edit *box, Field &number, Field &name);
    void refuse(Edit *box, const QString &typed);
    bool typedHolds();
    void showAgeOfStatus();
    Label *pointedCommand(const QString &name, const QString &caption, std::function<void()> handler);
    void unpoint();

    void openDriverList(const QString &reason);
    void pressToggle(const QString &button);
    void screenChanged(const QString &screen, bool open);
    QWidget *sideButton(const QString &name);

    void record();
    void amend(bool byUser);
    void cancel();
    void startAssistant();
    void showPodium();
    void afterResult();
    void filmClicked();
    void playFilm();
    const Screen *showLarge(const Field &picture);
    void showCircuitLarge();
    void gpTyped(const std::string &text);
    void start();
    void adapt();
    void sortTimeLists();
    void leave();
    void clearTotalsSoon(const QString &season);
    void clearNewSeason();
    void finishActions();

    results::MainRecord &m_main;
    QStringList m_pointed;
    std::string m_recordedGp, m_recordedSeason; // of which the status line speaks
    std::unique_ptr<Action> m_sorting, m_clearing; // parts of an action that a timer brings to its end
    QWidget *m_display = nullptr; // the card about the display's mode, shown where there is room for it
    TimerControl *m_newSeason = nullptr, *m_records = nullptr, *m_lap = nullptr, *m_img = nullptr, *m_vid = nullptr;
};

}
