#include "kinds/paper_screen.h"

#include "kinds/empty_note.h"
#include "results/main_record.h"
#include "shell/look.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QSaveFile>

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
    const auto entry = [this](const QString &name, const QString &caption, const QKeySequence &key, auto handler) {
        auto *action = new QAction(caption, m_view);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, handler);
        m_view->addAction(action);
        hidden(name, caption, [action] { action->trigger(); });
    };
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    entry(u"copierimage"_s, u"Copier l'image"_s, QKeySequence::Copy,
          [this] { QGuiApplication::clipboard()->setImage(m_view->image()); });
    entry(u"enregistrerpng"_s, u"Enregistrer en PNG..."_s, {}, [this] { save(u"png"_s, m_view->png()); });
    entry(u"enregistrersvg"_s, u"Enregistrer en SVG..."_s, {}, [this] { save(u"svg"_s, m_view->svg()); });
}

void PaperScreen::save(const QString &kind, const QByteArray &bytes)
{
    const QString filter = u"Images %1 (*.%2)"_s.arg(kind.toUpper(), kind);
    const auto path = context.dialogs.chooseNewFile(title().toStdString(), filter.toStdString());
    if (!path)
        return;
    QSaveFile file(qt(*path));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        context.dialogs.message("L'image n'a pas pu être enregistrée.");
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
