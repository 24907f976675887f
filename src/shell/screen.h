#pragma once
// The base of all screens: a borderless window with the program's own title bar, the skin, drag, close, kept on top, the
// wait pointer, printing, and the register of named controls through which screens, tests and the driver reach it.
#include "platform/platform.h"
#include "shell/skin.h"
#include "shell/table.h"
#include "shell/widgets.h"

#include <QRect>
#include <QWidget>

#include <map>
#include <memory>
#include <set>

class QHBoxLayout;
class QKeySequence;
class QRadioButton;
class QVBoxLayout;

namespace circuidex {

namespace results {
class MainRecord;
}
class Dialogs;
class Screens;
class Store;

inline const QString notYet = u"Pas encore disponible"_s; // of what leads to a screen that the program lacks

// What every screen works with.
struct Context {
    Store &store;
    results::MainRecord &main;
    Dialogs &dialogs;
    Platform &platform;
    Screens &screens;
    Skin skin = skins[0]; // the one that the next screen opened takes
};

class EdgeGrips;
class FocusRing;
class Page;
class TitleBar;

class Screen : public QWidget {
    Q_OBJECT
public:
    enum class Chrome { standard, mainWindow, none };

    Screen(Context &context, const QString &name, const QString &title, Chrome chrome = Chrome::standard);
    ~Screen() override;

    const QString &name() const { return m_name; } // "Form6"
    QString title() const { return windowTitle(); }

    // Null when there is no such control. An array's element is asked for by its index.
    Control *control(const QString &name, std::optional<int> index = std::nullopt) const;
    QStringList controlNames() const; // in the order of their names, elements as "Text3(4)"
    std::vector<TimerControl *> timers() const;
    std::vector<Table *> tables() const { return m_tables; }

    // The same, for another screen's use: nothing happens when there is no such control.
    void press(const QString &name, std::optional<int> index = std::nullopt) const;
    void setText(const QString &name, const QString &text, std::optional<int> index = std::nullopt) const;
    QString text(const QString &name, std::optional<int> index = std::nullopt) const;

    // Where the window stands, in twips. Far off means out of sight: open, but not seen.
    TwipRect place() const;
    void setPlace(double left, double top);
    // In twips, as pulled by the user. What neither the display nor the content allows isn't done, but place() tells it
    // until the window gets another size.
    void setSize(double width, double height);
    void putAway(double top = 50000) { setPlace(0, top); } // open, but not seen
    bool seen() const { return !m_outOfSight; }
    void present(); // shows it in front, if it is in sight, and whole on the display
    virtual void comeBack() {} // after a screen that took its place

    // The keys of this screen alone, or of every screen, with what they do, as told by those who answer them.
    struct Key {
        QString keys, does;
    };
    const std::vector<Key> &keys() const { return m_keys; }
    const std::vector<Key> &keysOfAll() const { return m_keysOfAll; }

    bool waiting() const { return m_waiting > 0; }
    void setWaiting(bool on);

    void dress(); // takes the skin that the program now has
    virtual void print(Printing how = Printing::atOnce); // the window as it stands; Ctrl+P, with Shift by the dialog

protected:
    Context &context;

    // The screen's own closing, once, by whatever road: keys are kept, openers told.
    virtual void closing() {}

    QRect room() const; // of the display, free of panels, in pixels
    bool standWhereLeft(); // at the place and in the size that its user gave it before, if he did
    virtual QSize takes() const { return size(); } // with what comes up beside it and moves with it
    virtual const QWidget *owner() const; // the window that it stays above; null for none

    QWidget *body() const { return m_body; }
    QVBoxLayout *page(); // the screen's layout from top to bottom, with the margins of all screens
    QHBoxLayout *footRow(const QString &print); // "Imprimer" at the left; what is added stands at the right

    // Registers a widget under its control name; its handlers serve the mouse and the driver alike.
    template <class W>
    W *add(const QString &name, W *widget, std::optional<int> index = std::nullopt)
    {
        registerWidget(name, widget, index);
        return widget;
    }
    Button *button(const QString &name, const QString &caption, std::function<void()> handler,
                   std::optional<int> index = std::nullopt);
    // One of several, of which one is selected; the handler runs when it becomes that one. They stand in one card.
    QRadioButton *option(const QString &name, const QString &caption, std::function<void()> selected);
    Label *command(const QString &name, const QString &caption, std::function<void()> handler);
    Label *printCommand(const QString &name);
    Control &hidden(const QString &name, const QString &text = {}, std::function<void()> onPress = {},
                    std::optional<int> index = std::nullopt);
    Control &hidden(const QString &name, Field &field, std::optional<int> index = std::nullopt);
    ShapeControl &shape(const QString &name, std::optional<int> index = std::nullopt); // a part of what is painted
    TimerControl &timer(const QString &name, int milliseconds, TimerControl::Kind kind, std::function<void()> fire);
    Table *table(std::vector<Column> columns, int rows);
    Label *quietLine(Field &said); // "avis": says what was kept or refused, without a box

    // Keys that work wherever the focus is in the window; its text fields keep the others. `does` tells the user what.
    void shortcut(const QKeySequence &keys, std::function<void()> handler, const QString &does = {});
    void tellKey(const QString &keys, const QString &does); // of one that is answered elsewhere, for the list of keys
    // For what opens a screen, once its tip is set: while the program lacks the screen, it looks so and does nothing.
    void leadsTo(QWidget &opener, const QString &screen) const;

    // Keeps a box and a field of the logic alike, in both directions.
    void bind(Edit *edit, Field &field);
    void bind(Remark *remark, Field &field);
    void bind(QLabel *label, Field &field);
    void bind(Picture *picture, Field &field);
    void listen(Field &field, Field::Listener listener); // for as long as the screen lives

    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void fitToDisplay();
    void standAt(const QPoint &corner);
    void notePlace();
    void standBeside();
    void keepPlace() const;
    void readyForKeyboard();
    void registerWidget(const QString &name, QWidget *widget, std::optional<int> index);
    void registerChrome();
    void keep(const QString &name, std::optional<int> index, std::unique_ptr<Control> control);

    QString m_name;
    QWidget *m_body;
    Page *m_page;
    TitleBar *m_bar = nullptr;
    FocusRing *m_ring;
    std::unique_ptr<EdgeGrips> m_grips; // none for a menu
    std::map<QString, std::map<int, std::unique_ptr<Control>>> m_controls; // a single control has index -1
    std::vector<Table *> m_tables;
    std::shared_ptr<const int> m_alive = std::make_shared<const int>(0); // what listens for this screen ends with it
    double m_left = 0, m_top = 0; // twips, as last set
    QPoint m_placedAt{1 << 20, 0}; // where that put the window; nowhere at first
    double m_width = 0, m_height = 0; // the same of its size
    QSize m_sizedTo;
    QPoint m_cornerThen; // when it came up, in pixels
    QSize m_sizeThen;
    bool m_remembers = false, m_maximisedThen = false; // where its user leaves it
    std::vector<Key> m_keys, m_keysOfAll;
    bool m_outOfSight = false, m_closed = false, m_tabsOrdered = false;
    int m_waiting = 0;
    Skin m_skin;
};

// Shows the wait pointer over a screen as long as it lives.
class Waiting {
public:
    explicit Waiting(Screen &screen) : m_screen(screen) { m_screen.setWaiting(true); }
    ~Waiting() { m_screen.setWaiting(false); }
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

private:
    Screen &m_screen;
};

// A group of fields: a white card, with a small bold caption where one is given. Add to its layout.
QWidget *card(const QString &caption, QLayout *inside, QWidget *parent = nullptr);
QLabel *styled(const QString &text, const char *style, QWidget *parent = nullptr); // "caption", "hint", "large", "place"

}
