// SPDX-License-Identifier: GPL-3.0-or-later
// Form72, how the drivers' championship came to its order: a line for each driver's number from rank to rank, and at
// its end his name, which brings the line to the fore.
#include "charts/order_progress.h"
#include "kinds/paper_screen.h"
#include "kinds/place_names.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>

namespace circuidex::screens {

using namespace charts;

namespace {

constexpr Paper orderPaper{450, 9825, 10480, 480, 0xF7F7F7, 480, 15};
constexpr double region[] = {-90, 370, 14730, 9710}; // twips on show: left, top, width, height
constexpr double rankPitch = 360, captionTop = 480, captionHeight = 255;
constexpr double nameLeft = 12480, nameWidth = 2100, swatchLeft = 12180, swatchRight = 12390;
constexpr int swatchWidth = 5, front = 3; // pixels; the width of a line brought to the fore

struct NumberLine {
    std::string_view control;
    std::uint32_t colour;
};

constexpr ByPlace<NumberLine, driverSlots> numberLines{{{
    {"Line1", 0xFF0000},  {"Line2", 0x00FF00},  {"Line3", 0x0000FF},  {"Line4", 0xC0C000},  {"Line7", 0xFFC0C0},
    {"Line8", 0xC0FFC0},  {"Line9", 0xC0C0FF},  {"Line11", 0x808000}, {"Line12", 0x00C000}, {"Line13", 0x000000},
    {"Line14", 0xC04000}, {"Line15", 0xFFC0FF}, {"Line16", 0xC0FFFF}, {"Line17", 0xFF00FF}, {"Line18", 0xC0C0C0},
    {"Line19", 0xFFC080}, {"Line20", 0x00C0C0}, {"Line21", 0xC000C0}, {"Line22", 0xEDC63F}, {"Line23", 0x64C8C8},
    {"Line24", 0xFF80FF}, {"Line25", 0xA22FDF}, {"Line26", 0x80FF80}, {"Line27", 0x00C0C0}, {"Line28", 0xFF8080},
    {"Line29", 0xC0C000},
}}};

TwipRect captionPlace(int rank)
{
    return {region[0], captionTop + rankPitch * (rank - 1), orderPaper.left - region[0] - 60, captionHeight};
}

TwipRect namePlace(int rank)
{
    return {nameLeft, captionTop + rankPitch * (rank - 1), nameWidth, captionHeight};
}

class Form72 : public PaperScreen {
public:
    Form72(Context &context, const QString &name, const QString &title);

private:
    void registerLines();
    void registerWork();
    void registerNames();
    void layOut();
    void toggle(int number);
    void restore(); // Label1
    void showChart();
    table_text::Grid figures() const override;
    ChartStroke lineOf(int number) const;
    void addRank(ChartPicture &picture, int rank) const;
    void addName(ChartPicture &picture, int rank);
    QColor colour(int number) const { return QColor::fromRgb(numberLines[number].colour); }
    QString meaning(int number, int slot) const;

    OrderProgress m_progress;
    ByPlace<Curve, driverSlots> m_curves; // by number
    ByPlace<int, driverSlots> m_widths; // the same, pixels
};

Form72::Form72(Context &theContext, const QString &name, const QString &title)
    : PaperScreen(theContext, name, title, orderPaper)
{
    const Waiting waiting(*this);
    context.main.refreshScale();
    m_progress = orderProgress(season(), context.main.scale());
    for (int n = 1; n <= driverSlots; ++n)
        m_curves[n] = orderLine(m_progress, n);
    registerLines();
    registerWork();
    registerNames();
    layOut();
    view()->describe = [this](int line, int point) { return point > 0 ? meaning(line + 1, point - 1) : QString(); };
    view()->onLine = [this](int line) { toggle(line + 1); };
    restore();
    view()->setFocus();
}

void Form72::registerLines()
{
    for (int n = 1; n <= driverSlots; ++n)
        for (int k = 0; k < segments; ++k)
            registerLine(qt(numberLines[n].control), k, colour(n), [this, n, k] {
                const Curve &curve = m_curves[n];
                return TwipLine{paper().vertex(k), curve.at(k - 1), paper().vertex(k + 1), curve.at(k), m_widths[n]};
            }).tipNow = [this, n, k] { return meaning(n, k); };
}

// Names with their totals, ranks, and the names by rank, as they stand at the end.
void Form72::registerWork()
{
    const Order &last = m_progress.last();
    for (int n = 1; n <= driverSlots; ++n) {
        Control &name = hidden(u"Text3"_s, qt(m_progress.names[n]), {}, n);
        if (last.totals[n])
            name.tag = qt(context.store.numbers().text(*last.totals[n]));
        hidden(u"Text4"_s, QString::number(last.ranks[n]), {}, n).tag = qt(last.holders[n]);
    }
    hidden(u"classement"_s, QString::number(last.ranks[driverSlots]));
}

void Form72::registerNames()
{
    for (int rank = 1; rank <= driverSlots; ++rank) {
        ShapeControl &name = shape(u"Label6"_s, rank);
        name.textNow = [this, rank] { return u"<= "_s + qt(m_progress.last().holders[rank]); };
        name.tipNow = [] { return u"Cliquez ici pour mettre en valeur ce pilote"_s; };
        name.geometryNow = [rank] { return namePlace(rank); };
        name.onPress = [this, rank] {
            if (const auto number = lineEndingAt(m_progress, rank))
                toggle(*number);
        };
    }
}

void Form72::layOut()
{
    auto *chart = new QVBoxLayout;
    chart->addWidget(view());
    auto *foot = footRow(u"Label7"_s);
    foot->addWidget(styled(u"Cliquez sur un nom ou sur une courbe pour la mettre en valeur."_s, "hint"));
    foot->addSpacing(16);
    foot->addWidget(command(u"Label1"_s, u"Restaurer l'épaisseur du trait"_s, [this] { restore(); }));
    auto *layout = page();
    layout->addWidget(card({}, chart), 1);
    layout->addLayout(foot);
    resize(1000, 730);
}

void Form72::toggle(int number)
{
    m_widths[number] = m_widths[number] == front ? 1 : front;
    showChart();
}

void Form72::restore()
{
    m_widths.values.fill(1);
    showChart();
}

void Form72::showChart()
{
    ChartPicture picture;
    picture.region = {region[0], region[1], region[2], region[3]};
    picture.paper = {0, paper().top, paper().sheet(), paper().bottom - paper().top};
    picture.title = title() + u" – saison "_s + qt(context.main.an.text());
    addPaper(picture);
    for (int n = 1; n <= driverSlots; ++n)
        picture.lines.push_back(lineOf(n));
    for (int rank = 1; rank <= driverSlots; ++rank) {
        addRank(picture, rank);
        addName(picture, rank);
    }
    view()->setPicture(std::move(picture));
}

ChartStroke Form72::lineOf(int number) const
{
    const QString name = qt(numberLines[number].control);
    ChartStroke made;
    for (int k = 0; k < segments; ++k) {
        const Control *piece = control(name, k);
        const TwipLine line = *piece->line();
        if (k == 0)
            made = {{{line.x1, line.y1}}, *piece->fore(), line.width, line.width == front, {}};
        made.points.push_back({line.x2, line.y2});
    }
    return made;
}

void Form72::addRank(ChartPicture &picture, int rank) const
{
    addLevel(picture, rankHeight(rank));
    picture.texts.push_back({captionPlace(rank), placeName(rank), Qt::AlignRight | Qt::AlignVCenter});
}

// The name at the end of a line, behind a piece of its colour. Beside names brought to the fore the others step back.
void Form72::addName(ChartPicture &picture, int rank)
{
    const auto number = lineEndingAt(m_progress, rank);
    const Control *name = control(u"Label6"_s, rank);
    if (!number || m_progress.last().holders[rank].empty())
        return;
    const bool chosen = m_widths[*number] == front, some = std::ranges::count(m_widths, front) > 0;
    const double y = rankHeight(rank);
    ChartStroke swatch = stroke({swatchLeft, y, swatchRight, y, swatchWidth}, colour(*number));
    picture.leaders.push_back(std::move(swatch));
    picture.texts.push_back({name->geometry(),
                             name->text(),
                             Qt::AlignLeft | Qt::AlignVCenter,
                             {},
                             chosen || !some ? look::ink : look::quiet});
    TwipRect whole = name->geometry();
    whole.width += whole.left - swatchLeft;
    whole.left = swatchLeft;
    picture.targets.push_back({whole, name->tip(), name->text(), [this, rank] { press(u"Label6"_s, rank); }});
}

// Nothing where nobody has raced.
// The ranks.
table_text::Grid Form72::figures() const
{
    QStringList names;
    std::vector<int> numbers;
    for (int n = 1; n <= driverSlots; ++n)
        if (!m_progress.names[n].empty()) {
            names << qt(m_progress.names[n]);
            numbers.push_back(n);
        }
    return figuresOf(Races::named, names, [this, &numbers](int subject, int slot) {
        const int number = numbers[std::size_t(subject)];
        const bool run = !meaning(number, slot).isEmpty();
        return run ? QString::number(m_progress.after[std::size_t(slot)].ranks[number]) : QString();
    });
}

QString Form72::meaning(int number, int slot) const
{
    const std::string gp = season().namegp(slot), &name = m_progress.names[number];
    if (gp.empty() || name.empty() || !season().recorded(gp))
        return {};
    const Order &order = m_progress.after[std::size_t(slot)];
    const QString points = qt(context.store.numbers().text(order.totals[number].value_or(0)));
    return u"%1 – %2 : %3 (%4 pts)"_s.arg(qt(gp), qt(name), placeName(order.ranks[number]), points);
}

}

ScreenRows form72()
{
    return {screenRow<Form72>(u"Form72"_s, u"Progression du Classement Pilote"_s)};
}

}
