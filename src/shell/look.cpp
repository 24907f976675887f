// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/look.h"

#include "shell/accessibility.h"
#include "shell/text.h"
#include "shell/widgets.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

#include <algorithm>
#include <cmath>

namespace circuidex::look {

namespace {

double luminance(const QColor &colour)
{
    const auto linear = [](double part) { return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

QColor between(const QColor &from, const QColor &to, double way)
{
    const auto part = [way](int a, int b) { return static_cast<int>(std::lround(a + way * (b - a))); };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

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
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QFont font;
    font.setFamilies({u"Liberation Sans"_s, u"Arimo"_s, u"DejaVu Sans"_s}); // the first that the machine has
    font.setPixelSize(13); // 10 points on the display the screens are made for
    QApplication::setFont(font);
    QPalette palette;
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::Base, card);
    palette.setColor(QPalette::AlternateBase, stripe);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, ink);
    palette.setColor(QPalette::Highlight, chosen);
    palette.setColor(QPalette::HighlightedText, ink);
    palette.setColor(QPalette::PlaceholderText, quiet);
    application.setPalette(palette);
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
    return u"background:%1;border-radius:3px"_s.arg(colour.name());
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
