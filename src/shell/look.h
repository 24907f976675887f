// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one identity of the program: colours, font and the style sheet of all screens. A screen gets its looks from here
// and chooses none of its own. The colours below are the given ones, which controls answer and copies carry in either
// appearance; what is painted passes through shown, drawn, written or over.
#include "shell/skin.h"

#include <QByteArray>
#include <QColor>
#include <QMargins>
#include <QGradient>
#include <QIcon>
#include <QString>

#include <array>
#include <string>
#include <vector>

class QApplication;
class QWidget;

namespace circuidex::look {

inline const QColor ground{0xF4, 0xF5, 0xF7};   // behind everything
inline const QColor card{0xFF, 0xFF, 0xFF};     // groups of fields, tables
inline const QColor line{0xD9, 0xDD, 0xE3};     // borders
inline const QColor ink{0x1F, 0x27, 0x33};      // text
inline const QColor quiet{0x66, 0x6F, 0x7D};    // captions, hints
inline const QColor faint{0xBC, 0xC0, 0xC7};    // names that a search passes over
inline const QColor stripe{0xFA, 0xFB, 0xFC};   // every second row
inline const QColor menu{251, 254, 226};        // drop-downs and the list of all windows

// The tables' colours, the same on all screens.
inline const QColor chosen{192, 192, 255};      // the selected row, no change
inline const QColor gain{192, 255, 192};        // gain or best
inline const QColor loss{255, 192, 192};        // loss or worst
inline const QColor second{255, 255, 192};      // a team's drivers: the first as chosen, this, the third as loss, and
inline const QColor fourth{192, 255, 255};      // this; the team itself as gain
inline const QColor pointed{255, 0, 0};         // a command label under the pointer
inline const QColor unpointed{0, 0, 0};
inline const QColor plain{255, 255, 255};       // of a cell that says nothing
inline const QColor atHand{0, 255, 0};          // a film of this Grand Prix is at hand
inline const QColor unsaved{0xF0, 0x8C, 0x00};   // the dot on what stores an entry
inline const QColor onBar{255, 255, 255};       // text on the bars of ranked tables
inline const QColor average{0, 0, 0};           // of a highlighted line
inline const QColor pairBars[]{{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}}; // of two and two subjects

inline const QColor bars{0, 0, 192};            // of ranked tables
inline const QColor levelBars[]{{0, 0, 192}, {192, 192, 255}}; // by turns, of places held
inline const QColor onLevelBars[]{{255, 255, 255}, {0x1F, 0x27, 0x33}};
inline const QColor seasonBars[]{{255, 128, 128}, {128, 255, 128}, {128, 128, 255}, {255, 255, 128}}; // newest first
inline const QColor level{0xEE, 0xF0, 0xF3};    // the level lines of a chart
inline const QColor bubble{255, 255, 255, 240}; // behind what a point of a chart says

// On the skin's colour.
inline const QColor onSkin{255, 255, 255};         // text and signs
inline const QColor shine{255, 255, 255, 70};      // the bar's upper edge
inline const QColor glass{255, 255, 255, 60};      // behind the signs of the bar
inline const QColor glassHeld{255, 255, 255, 150}; // the same, held down

inline constexpr int rowHeight = 22; // pixels
inline constexpr int gap = 8;        // pixels, the grid that everything stands on
inline constexpr QMargins margins{10, 8, 10, 10}; // of every screen, within its border

// The user's wish: light, dark, or empty for the system's choice. The environment's CIRCUIDEX_APPARENCE goes first.
inline constexpr char light[] = "claire", dark[] = "sombre";
// Paints the whole program anew in the appearance wished for.
void appear(const std::string &wish);
bool isDark();

// A given colour as it is laid down in the present appearance, as text or a sign on a card, as a line of a chart.
QColor shown(const QColor &given);
QColor written(const QColor &given);
QColor drawn(const QColor &given);
QColor ruled(const QColor &given); // of its grid, which stands back
// Text of a given colour on a given colour: as given where it can be read, else what is read best.
QColor over(const QColor &fore, const QColor &back);
inline QColor readable(const QColor &back) { return over(ink, back); }

QIcon sign(const QIcon &given); // of one colour, for a button

// A widget's own sheet, written in given colours.
void dress(QWidget &widget, const QString &sheet);

// While it lives, charts are painted as on paper; screens too when whole is true.
class OnPaper {
public:
    explicit OnPaper(bool whole = false);
    ~OnPaper();
    OnPaper(const OnPaper &) = delete;
    OnPaper &operator=(const OnPaper &) = delete;

private:
    bool m_wasDark, m_whole;
};

// The sizes of text that the user can choose, in percent; everything grows with it.
inline constexpr std::array textSizes{100, 110, 125, 150};
// Around the making of the application. The environment's CIRCUIDEX_TEXTE goes before the size wished for; another text
// than one of the sizes means 100.
class TextSize {
public:
    explicit TextSize(const std::string &wish);
    ~TextSize(); // programs that this one starts have their own size
    TextSize(const TextSize &) = delete;
    TextSize &operator=(const TextSize &) = delete;

private:
    QByteArray m_before;
};

inline QColor colour(const Colour &c) { return {c.red, c.green, c.blue}; }

// Of the bars of places held, best first: from green to red, at the finish in steps, on the grid from the first place to
// the middle and on to the last.
std::vector<QColor> finishShades();
std::vector<QColor> gridShades();

// How well one colour is read on another, from 1 to 21. Text needs 4.5.
double contrast(const QColor &a, const QColor &b);
// The skin's colour where white text stands on it: darkened towards its edge just as far as the text needs.
QColor filled(const Skin &skin);
// The title bar from top to bottom; its title stands in the middle half.
QGradientStops bar(const Skin &skin);

// Font, palette and plain text, once for the program.
void dress(QApplication &application);

// The style sheet of a screen in the given skin, for dress.
QString styleSheet(const Skin &skin);

// The sheets, in given colours, of the few widgets that differ from the common one.
QString swatch(const QColor &colour);      // a small bar that says which line is whose
QString legendSwatch(const QColor &colour); // with the line of a card around it
QString modeGroup(const QColor &behind);   // the ground of a group of buttons; the widget is named "modes"
QString narrowHeads();                     // of a table whose heads are many and small

}
