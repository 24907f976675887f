// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/paper_screen.h"

#include "kinds/empty_note.h"
#include "results/main_record.h"
#include "shell/chart_menu.h"
#include "shell/look.h"

#include <QAction>

#include <algorithm>

namespace circuidex {

using namespace charts;

namespace {

TwipRect bounds(const TwipLine &l)
{
    return {std::min(l.x1, l.x2), std::min(l.y1, l.y2), std::abs(l.x2 - l.x1), std::abs(l.y2 - l.y1)};
}

// Under its segment. The twentieth Grand Prix has the caption with index 0.
TwipRect captionPlace(const Paper &paper, int slot)
{
    return {paper.vertex(slot), paper.bottom, paper.vertex(slot + 1) - paper.vertex(slot), axisCaptionHeight};
}

TwipLine gridLine(const Paper &paper, int k)
{
    return {paper.vertex(k), paper.gridFrom, paper.vertex(k), paper.gridTo, 1};
}

TwipLine baseLine(const Paper &paper)
{
    return {paper.left, paper.bottom, paper.right(), paper.bottom, 1};
}

}

ChartStroke stroke(const TwipLine &l, const QColor &colour)
{
    return {{{l.x1, l.y1}, {l.x2, l.y2}}, colour, l.width};
}

PaperScreen::PaperScreen(Context &theContext, const QString &name, const QString &title, const Paper &paper)
    : Screen(theContext, name, title), m_paper(paper), m_view(new ChartView(body()))
{
    registerPaper();
    registerSaving();
    add(emptyNote, noteOver(*m_view, context));
}

WritableSeason PaperScreen::season() const
{
    return context.main.writableSeason();
}

QString PaperScreen::gpName(int slot) const
{
    return qt(season().namegp(slot));
}

ShapeControl &PaperScreen::registerLine(const QString &name, std::optional<int> index, QColor colour,
                                        std::function<TwipLine()> line)
{
    ShapeControl &made = shape(name, index);
    made.setFore(colour);
    made.geometryNow = [line] { return bounds(line()); };
    made.lineNow = std::move(line);
    return made;
}

void PaperScreen::registerPaper()
{
    shape(u"Label10"_s).geometryNow = [this] {
        return TwipRect{0, paper().top, paper().sheet(), paper().bottom - paper().top};
    };
    shape(u"Line5"_s).lineNow = [this] { return baseLine(paper()); };
    const QColor gridColour = QColor::fromRgb(paper().gridColour);
    for (int k = 1; k < segments; ++k)
        registerLine(u"Line6"_s, k, gridColour, [this, k] { return gridLine(paper(), k); });
    for (int slot = 0; slot < segments; ++slot) {
        ShapeControl &caption = shape(u"Label11"_s, (slot + 1) % segments);
        caption.textNow = [slot] { return u"GP%1"_s.arg(slot + 1); };
        caption.tipNow = [this, slot] { return gpName(slot); };
        caption.geometryNow = [this, slot] { return captionPlace(paper(), slot); };
    }
}

void PaperScreen::registerSaving()
{
    m_view->asGrid = [this] { return figures(); };
    auto *menu = new ChartMenu(*m_view, context.dialogs);
    menu->decimal = [this] { return context.store.numbers().separator(); };
    for (const auto &[name, action] : menu->entries())
        hidden(name, action->text(), [action = action] { action->trigger(); });
}

table_text::Grid PaperScreen::figuresOf(Races races, const QStringList &subjects,
                                        const std::function<QString(int subject, int slot)> &figure) const
{
    table_text::Grid grid{title().toStdString(), {{"Grand Prix"}}, {}};
    for (const QString &subject : subjects)
        grid.columns.push_back({subject.toStdString(), true});
    for (int slot = 0; slot < segments; ++slot) {
        std::vector<table_text::Cell> row;
        for (int i = 0; i < subjects.size(); ++i)
            row.push_back({figure(i, slot).toStdString()});
        const bool drawn = std::any_of(row.begin(), row.end(), [](const auto &cell) { return !cell.text.empty(); });
        const QString race = races == Races::named ? gpName(slot) : u"GP%1"_s.arg(slot + 1);
        row.insert(row.begin(), {race.toStdString()});
        if (drawn || (races == Races::named && !race.isEmpty()))
            grid.rows.push_back(std::move(row));
    }
    return grid;
}

void PaperScreen::addPaper(ChartPicture &picture) const
{
    const Paper &p = paper();
    for (int k = 1; k < segments; ++k)
        picture.grid.push_back(stroke(*control(u"Line6"_s, k)->line(), *control(u"Line6"_s, k)->fore()));
    for (int slot = 0; slot < segments; ++slot)
        picture.texts.push_back(
            {captionPlace(p, slot), u"GP%1"_s.arg(slot + 1), Qt::AlignCenter, [this, slot] { return gpName(slot); }});
    picture.axes.push_back(stroke(baseLine(p), look::quiet));
    picture.axes.push_back(stroke({p.left, p.top, p.left, p.bottom, 1}, look::line));
}

void PaperScreen::addLevel(ChartPicture &picture, double y) const
{
    picture.grid.push_back(stroke({paper().left, y, paper().right(), y, 1}, look::level));
}

}
