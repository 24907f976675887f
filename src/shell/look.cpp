// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/look.h"

#include "shell/accessibility.h"
#include "shell/text.h"
#include "shell/widgets.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <optional>

namespace circuidex::look {

namespace {

double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

QColor between(const QColor &from, const QColor &to, double way)
{
    const auto part = [way](int a, int b) { return static_cast<int>(std::lround(a + way * (b - a))); };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

bool darkNow = false, systemIsDark = false;
QPalette lightPalette; // that this program's colours are laid over

struct Shade {
    QRgb given, dark;
};

// What is laid down: grounds, frames and the colours that say something in tables.
constexpr Shade grounds[]{
    {0xF4F5F7, 0x15181D}, {0xFFFFFF, 0x1E2228}, {0xD9DDE3, 0x3A414C}, {0xFAFBFC, 0x22272E}, {0xEEF0F3, 0x2C323A},
    {0xEDEFF2, 0x2C323A}, {0xC9CFD8, 0x4A525F}, {0xE3E6EB, 0x30363F}, {0xEEF1F5, 0x2B313A}, {0xAEB7C4, 0x667081},
    {0xE2E6EC, 0x363D48}, {0xF7F8FA, 0x1A1E23}, {0xFFF0F0, 0x3D2025}, {0xE4E7FF, 0x31375F}, {0xFBFEE2, 0x2A2C1E},
    {0xDDE1BD, 0x484B33}, {0xD9DDB8, 0x484B33}, {0xF3F6D3, 0x35382A}, // menus and lists
    {0xC0C0FF, 0x3C4287}, {0xC0FFC0, 0x1F5C2A}, {0xFFC0C0, 0x742F34}, {0xFFFFC0, 0x5C5620}, {0xC0FFFF, 0x1B5A61},
    {0x0000C0, 0x4A5AE0}, // bars
};

// What is written on them in no colour.
constexpr Shade inks[]{
    {0x000000, 0xEDF0F4}, {0x1F2733, 0xE3E7ED}, {0x3D4755, 0xC3CAD4}, {0x666F7D, 0x9DA6B4},
    {0xA0A7B2, 0x727B89}, {0x8A92A0, 0x7D8694}, {0xBCC0C7, 0x5D6572}, {0xA3A78C, 0x7B7F66},
};

template <std::size_t n>
std::optional<QColor> paired(const Shade (&shades)[n], const QColor &given)
{
    for (const Shade &shade : shades)
        if ((given.rgb() & RGB_MASK) == shade.given)
            return QColor::fromRgb(shade.dark);
    return std::nullopt;
}

// A colour made lighter just as far as it needs to be told from a dark card.
QColor lightened(const QColor &given, double wanted)
{
    const QColor behind = *paired(grounds, card);
    float hue, saturation, lightness, alpha;
    given.getHslF(&hue, &saturation, &lightness, &alpha);
    QColor colour = given;
    while (contrast(colour, behind) < wanted && lightness < 1) {
        lightness = std::min(lightness + .02F, 1.F);
        colour = QColor::fromHslF(std::max(hue, 0.F), saturation, lightness, alpha);
    }
    return colour;
}

// A light colour turned dark: the paler it was, the nearer it comes to the ground.
QColor deepened(const QColor &given)
{
    float hue, saturation, lightness, alpha;
    given.getHslF(&hue, &saturation, &lightness, &alpha);
    const float paleness = lightness - .5F;
    return QColor::fromHslF(std::max(hue, 0.F), saturation * (1 - paleness), .5F - paleness * .7F, alpha);
}

constexpr QLatin1String lineMark("/*line*/"); // begins the sheet of what shows the colour of a line

// In the sheet of one widget the text is to be read on the widget's ground.
QString inAppearance(const QString &sheet)
{
    if (!darkNow)
        return sheet;
    static const QRegularExpression colours(
        u"(?<![-a-z])(?:((?:selection-)?color:)|((?:selection-)?background(?:-color)?:))?(#[0-9A-Fa-f]{6})\\b"_s);
    const bool ofOne = sheet.count(u'{') <= 1, ofLine = sheet.startsWith(lineMark);
    QColor behind;
    bool wrote = false;
    QString made;
    qsizetype done = 0;
    for (auto found = colours.globalMatch(sheet); found.hasNext();) {
        const auto match = found.next();
        const QColor given(match.captured(3));
        const bool writes = match.hasCaptured(1), lays = match.hasCaptured(2);
        wrote |= writes;
        if (lays)
            behind = given;
        made += sheet.mid(done, match.capturedStart() - done) + match.captured(1) + match.captured(2);
        const QColor laid = ofLine ? drawn(given) : shown(given);
        const QColor text = ofOne && behind.isValid() ? over(given, behind) : written(given);
        made += (writes ? text : laid).name();
        done = match.capturedEnd();
    }
    made += sheet.mid(done);
    if (ofOne && behind.isValid() && !wrote && readable(behind) != written(ink))
        made.insert(made.endsWith(u'}') ? made.size() - 1 : made.size(), u";color:%1;"_s.arg(readable(behind).name()));
    return made;
}

constexpr char givenSheet[] = "givenSheet"; // the property of a widget that keeps it

QPalette palette()
{
    QPalette palette = darkNow ? QPalette(shown(ground), shown(ground)) : lightPalette;
    palette.setColor(QPalette::Window, shown(ground));
    palette.setColor(QPalette::Base, shown(card));
    palette.setColor(QPalette::AlternateBase, shown(stripe));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, written(ink));
    if (darkNow)
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(QPalette::Disabled, role, written(faint));
    palette.setColor(QPalette::Highlight, shown(chosen));
    palette.setColor(QPalette::HighlightedText, written(ink));
    palette.setColor(QPalette::PlaceholderText, written(quiet));
    return palette;
}

// The frames of ticks and options are drawn darker than what they take for the window's colour.
void paint()
{
    QPalette framed = palette();
    QApplication::setPalette(framed);
    if (darkNow)
        framed.setColor(QPalette::Window, written(ink));
    for (const char *widgets : {"QRadioButton", "QCheckBox"})
        QApplication::setPalette(framed, widgets);
}

// By what the desktop gives its programs, before this one takes its own colours.
bool darkSystem(const QPalette &given)
{
    const auto isDarkOne = [](const QPalette &p) {
        return luminance(p.color(QPalette::Window)) < luminance(p.color(QPalette::WindowText));
    };
    const QByteArray gtk = qgetenv("GTK_THEME").toLower();
    return isDarkOne(given) || isDarkOne(QApplication::style()->standardPalette()) || gtk.endsWith(":dark") ||
        gtk.endsWith("-dark");
}

void turn(bool dark)
{
    if (dark == darkNow)
        return;
    darkNow = dark;
    paint();
    for (QWidget *widget : QApplication::allWidgets())
        if (const QVariant given = widget->property(givenSheet); given.isValid())
            dress(*widget, given.toString());
    for (QWidget *widget : QApplication::allWidgets())
        widget->update();
}

}

void appear(const std::string &wish)
{
    const QByteArray asked = qgetenv("CIRCUIDEX_APPARENCE");
    const std::string &goes = asked == dark || asked == light ? asked.toStdString() : wish;
    turn(goes == dark || (goes != light && systemIsDark));
}

bool isDark()
{
    return darkNow;
}

QColor shown(const QColor &given)
{
    if (!darkNow || !given.isValid())
        return given;
    if (auto colour = paired(grounds, given)) {
        colour->setAlpha(given.alpha());
        return *colour;
    }
    if (const auto colour = paired(inks, given))
        return *colour;
    return given.lightnessF() > .52F ? lightened(deepened(given), 1.8) : drawn(given);
}

QColor written(const QColor &given)
{
    if (!darkNow || !given.isValid())
        return given;
    const auto colour = paired(inks, given);
    return colour ? *colour : lightened(given, 5.2); // 4.5 on all other grounds too
}

QColor drawn(const QColor &given)
{
    if (!darkNow || !given.isValid())
        return given;
    for (const QColor &rule : {line, level})
        if (given == rule)
            return shown(given);
    const auto colour = paired(inks, given);
    return colour ? *colour : lightened(given, 3);
}

QColor ruled(const QColor &given)
{
    return darkNow && given.lightnessF() > .75F ? paired(grounds, given).value_or(shown(level)) : drawn(given);
}

QColor over(const QColor &fore, const QColor &back)
{
    if (!darkNow)
        return fore;
    const QColor behind = shown(back);
    QColor best = written(fore);
    if (contrast(best, behind) < 4.5)
        best = contrast(Qt::white, behind) > contrast(Qt::black, behind) ? Qt::white : Qt::black;
    return best;
}

QIcon sign(const QIcon &given)
{
    if (!darkNow)
        return given;
    constexpr int side = 32; // pixels, twice what it is shown at
    QPixmap picture = given.pixmap(side);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), written(ink));
    return picture;
}

void dress(QWidget &widget, const QString &sheet)
{
    widget.setProperty(givenSheet, sheet);
    widget.setStyleSheet(inAppearance(sheet));
}

OnPaper::OnPaper(bool whole) : m_wasDark(darkNow), m_whole(whole)
{
    if (whole)
        turn(false);
    darkNow = false;
}

OnPaper::~OnPaper()
{
    if (m_whole)
        turn(m_wasDark);
    darkNow = m_wasDark;
}

TextSize::TextSize(const std::string &wish) : m_before(qgetenv("QT_SCALE_FACTOR"))
{
    const QByteArray asked = qgetenv("CIRCUIDEX_TEXTE");
    const int percent = (asked.isEmpty() ? QByteArray::fromStdString(wish) : asked).toInt();
    if (percent == 100 || std::find(textSizes.begin(), textSizes.end(), percent) == textSizes.end())
        return;
    bool number = false;
    const double before = m_before.toDouble(&number);
    qputenv("QT_SCALE_FACTOR", QByteArray::number((number && before > 0 ? before : 1) * percent / 100));
}

TextSize::~TextSize()
{
    if (m_before.isEmpty())
        qunsetenv("QT_SCALE_FACTOR");
    else
        qputenv("QT_SCALE_FACTOR", m_before);
}

std::vector<QColor> finishShades()
{
    std::vector<QColor> shades;
    for (const QRgb shade : {0x00FF00U, 0x8FF98AU, 0xB3FBAEU, 0xCDFCC9U, 0xFDD0C6U, 0xF99393U, 0xF87878U, 0xFF0000U})
        shades.push_back(QColor::fromRgb(shade));
    return shades;
}

std::vector<QColor> gridShades()
{
    constexpr int half = 13;
    std::vector<QColor> shades;
    for (const auto &[from, to] : {std::pair(0x00FF00, 0xCAFDCB), std::pair(0xFFC0C0, 0xF32525)})
        for (int i = 0; i < half; ++i)
            shades.push_back(between(QColor::fromRgb(QRgb(from)), QColor::fromRgb(QRgb(to)), i / double(half - 1)));
    return shades;
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor filled(const Skin &skin)
{
    const QColor main = colour(skin.main), edge = colour(skin.edge);
    double way = 0;
    while (way < 1 && contrast(between(main, edge, way), onSkin) < 4.5)
        way += 0.05;
    return between(main, edge, std::min(way, 1.0));
}

QGradientStops bar(const Skin &skin)
{
    return {{0, colour(skin.main).lighter(135)}, {0.25, filled(skin)}, {0.5, filled(skin)}, {1, colour(skin.edge)}};
}

void dress(QApplication &application)
{
    const QPalette given = QApplication::palette();
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QFont font;
    font.setFamilies({u"Liberation Sans"_s, u"Arimo"_s, u"DejaVu Sans"_s}); // the first that the machine has
    font.setPixelSize(13); // 10 points on the display the screens are made for
    QApplication::setFont(font);
    systemIsDark = darkSystem(given);
    lightPalette = systemIsDark ? QPalette(QColor(0xEF, 0xEF, 0xEF)) : QPalette();
    paint();
    showTextPlainly(application);
    makePressable();
}

QString styleSheet(const Skin &skin)
{
    static const QString sheet = QStringLiteral(R"(
#body { background:#F4F5F7; }
QToolTip { background:#FFFFFF; color:#1F2733; border:1px solid #D9DDE3; padding:4px; }
#card { background:#FFFFFF; border:1px solid #D9DDE3; border-radius:6px; }
#slot { background:#FFFFFF; border:1px solid #D9DDE3; border-radius:6px; }
#slot[chosen="true"] { background:#C0C0FF; border:1px solid MAIN; }
#caption { font-weight:bold; font-size:12px; color:#3D4755; }
#hint { color:#666F7D; font-size:12px; }
#large { font-weight:bold; font-size:18px; }
#winner { font-weight:bold; font-size:30px; }
#empty { background:#FFFFFF; border:1px solid #C9CFD8; border-radius:6px; padding:9px 16px; color:#3D4755; }
#empty:hover, #empty:focus { border:1px solid MAIN; }
#figure { font-weight:bold; }
#place { color:#666F7D; }
#status { color:#1B7A3D; font-weight:bold; }
#podiumname { font-weight:bold; font-size:15px; padding:4px 0; }
#podiumstep { background:qlineargradient(x1:0,y1:0,x2:0,y2:1,stop:0 FILL,stop:1 EDGE); color:#FFFFFF;
    font-weight:bold; font-size:20px; border-top-left-radius:4px; border-top-right-radius:4px; margin:0 3px; }
#lost { color:#B00020; }
QLineEdit[title="true"] { font-weight:bold; }
QLineEdit[refused="true"], QLineEdit[refused="true"]:focus { border:1px solid #B00020; background:#FFF0F0; }
QLabel[command="true"] { color:#000000; padding:2px 0; margin:0 4px; border:0; border-bottom:1px solid #C9CFD8; }
QLabel[command="true"]:focus { border-bottom:1px solid MAIN; }
QLabel[command="true"]:hover { border-bottom:1px solid MAIN; }
QLabel[command="true"]:disabled { color:#A0A7B2; border-bottom:1px dotted #D9DDE3; }
QLabel[film="true"] { border:1px solid #C9CFD8; border-radius:4px; padding:4px; margin:0; }
QLabel[slot="true"] { border:1px solid transparent; border-bottom:1px solid #EDEFF2; border-radius:3px; padding:1px 8px; }
QLabel[slot="true"]:hover, QLabel[slot="true"]:focus { border:1px solid MAIN; }
QLineEdit, QPlainTextEdit { background:#FFFFFF; border:1px solid #C9CFD8; border-radius:3px; padding:1px 4px;
    selection-background-color:#C0C0FF; selection-color:#1F2733; }
QLineEdit { min-height:20px; max-height:20px; }
QLineEdit:focus, QPlainTextEdit:focus { border:1px solid MAIN; }
QLineEdit:read-only { background:#FAFBFC; border-color:#E3E6EB; }
QLineEdit[choice="true"] { background:#FFFFFF; border-color:#C9CFD8; }
QPushButton { background:#FFFFFF; border:1px solid #C9CFD8; border-radius:4px; padding:3px 10px; min-height:20px; }
QPushButton:hover { background:#EEF1F5; border-color:#AEB7C4; }
QPushButton:pressed { background:#E2E6EC; }
QPushButton:focus { border:1px solid MAIN; }
QPushButton:disabled { color:#A0A7B2; background:#F7F8FA; }
QPushButton[main="true"] { background:FILL; color:#FFFFFF; border:1px solid EDGE; font-weight:bold; }
QPushButton[main="true"]:hover { background:EDGE; }
QPushButton[main="true"]:disabled { background:#E3E6EB; color:#8A92A0; border:1px solid #D9DDE3; }
QPushButton[small="true"] { padding:1px 6px; min-height:18px; }
QPushButton[quietly="true"] { text-align:left; padding:2px 10px; }
QPushButton[name="true"] { text-align:left; padding:2px 8px; }
QPushButton[edge="true"] { border:0; border-left:1px solid #D9DDB8; border-radius:0; padding:0; font-weight:bold;
    color:#3D4755; background:#F3F6D3; }
QPushButton[edge="true"]:hover { background:#C0C0FF; }
#proposals { background:#FFFFFF; border:1px solid MAIN; border-radius:3px; outline:0; padding:0; }
#proposals::item { min-height:22px; padding:0; border:0; color:#1F2733; }
#proposals::item:hover { background:#EEF1F5; }
#proposals::item:selected { background:#C0C0FF; color:#1F2733; }
#spelling { color:#3D4755; background:#FFFFFF; padding:0 2px; border-bottom:1px dotted #3D4755; }
#spelling:hover { background:#C0C0FF; }
#days { background:#FFFFFF; border:1px solid MAIN; }
QCalendarWidget QWidget#qt_calendar_navigationbar { background:#F4F5F7; }
QCalendarWidget QToolButton { color:#1F2733; background:transparent; border:0; padding:2px 8px; font-weight:bold; }
QCalendarWidget QToolButton:hover { background:#E2E6EC; border-radius:3px; }
QCalendarWidget QToolButton:disabled { color:#1F2733; }
QCalendarWidget QToolButton::menu-indicator { image:none; }
QCalendarWidget QAbstractItemView { border:0; selection-background-color:#C0C0FF; selection-color:#1F2733; outline:0; }
QCalendarWidget QAbstractItemView:disabled { color:#BCC0C7; }
#warning { color:#8A4B00; font-size:12px; }
#menu { background:#FBFEE2; }
#menurule { background:#DDE1BD; margin:0 8px; }
QLabel[menu="entry"] { padding:0 10px; color:#1F2733; }
QLabel[menu="absent"] { padding:0 10px; color:#A3A78C; }
QLabel[menu="heading"] { padding:0 10px; font-weight:bold; color:#3D4755; }
QLabel[menu="group"] { padding:9px 10px 2px 10px; font-weight:bold; color:#3D4755; border-bottom:1px solid #DDE1BD; }
QLabel[menu="title"] { padding:2px 8px 0 8px; font-weight:bold; font-size:18px; }
QLabel[menu="text"] { padding:0 10px; color:#666F7D; }
QTableView { background:#FFFFFF; alternate-background-color:#FAFBFC; border:1px solid #D9DDE3; border-radius:4px;
    gridline-color:#EDEFF2; selection-background-color:#E4E7FF; selection-color:#1F2733; }
QTableView::item { padding:0 3px; border:0; }
QTableView::item:selected { background:#E4E7FF; color:#1F2733; }
#sorted { color:#3D4755; font-size:7px; }
#find { background:#FFFFFF; border:1px solid #C9CFD8; border-radius:4px; }
#find QToolButton { border:0; padding:1px 5px; color:#3D4755; }
#find QToolButton:hover { background:#EEF0F3; border-radius:3px; }
QHeaderView { background:#FFFFFF; }
QHeaderView::section { background:#F4F5F7; color:#3D4755; border:0; border-bottom:1px solid #D9DDE3; padding:3px 6px;
    font-weight:bold; font-size:12px; }
QProgressBar { background:#EEF0F3; border:1px solid #D9DDE3; border-radius:4px; min-height:18px; max-height:18px;
    text-align:center; }
QProgressBar::chunk { background:#C0C0FF; border-radius:3px; }
QScrollBar:vertical { background:transparent; width:10px; margin:0; }
QScrollBar::handle:vertical { background:#C9CFD8; border-radius:5px; min-height:24px; }
QScrollBar:horizontal { background:transparent; height:10px; margin:0; }
QScrollBar::handle:horizontal { background:#C9CFD8; border-radius:5px; min-width:24px; }
QScrollBar::add-line, QScrollBar::sub-line { width:0; height:0; }
)");
    return QString(sheet)
        .replace(QLatin1String("MAIN"), colour(skin.main).name())
        .replace(QLatin1String("FILL"), filled(skin).name())
        .replace(QLatin1String("EDGE"), colour(skin.edge).name());
}

QString swatch(const QColor &colour)
{
    return lineMark + u"background:%1;border-radius:3px"_s.arg(colour.name());
}

QString legendSwatch(const QColor &colour)
{
    return u"background:%1; border:1px solid %2;"_s.arg(colour.name(), line.name());
}

QString modeGroup(const QColor &behind)
{
    return u"#modes { background:%1; border-radius:6px; } #modes QPushButton { padding:3px 5px; }"_s.arg(behind.name());
}

QString narrowHeads()
{
    return u"QHeaderView::section { font-size:11px; padding:0 3px; }"_s;
}

}
