#include "kinds/viewer.h"

#include "media/viewer_size.h"
#include "platform/qt_pictures.h"
#include "results/main_record.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QScrollArea>

#include <algorithm>
#include <utility>

namespace circuidex {

namespace {

// Twips around the picture, and of the row below it.
constexpr double aroundWide = 50, aroundHigh = 900, footHigh = 800;

}

Viewer::Viewer(Context &theContext, const QString &name, const QString &title, QWidget *between, QWidget *heading)
    : Screen(theContext, name, title), m_picture(add(u"Image1"_s, new Picture)), m_area(new QScrollArea)
{
    m_picture->setEnlarged(true);
    m_picture->setMinimumSize(1, 1);
    m_area->setWidget(m_picture);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setAlignment(Qt::AlignCenter);
    m_area->setWidgetResizable(true);
    m_area->setMinimumHeight(60);
    auto *layout = page();
    layout->setContentsMargins({}); // what is around the picture is as narrow as its room says
    layout->setSpacing(0);
    layout->addWidget(m_area, 1);
    layout->addLayout(foot(between, heading));
    const media::ViewerSize kept = media::viewerSize(context.main.season());
    constexpr double usualWidth = 9600, usualHeight = 7500;
    setSize(kept.width.value_or(usualWidth), kept.height.value_or(usualHeight));
}

QLayout *Viewer::foot(QWidget *between, QWidget *heading)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->setContentsMargins(look::gap, 0, look::gap, 0);
    row->addWidget(button(u"Command3"_s, u"Taille réele"_s, [this] { showAsLarge(); }));
    row->addWidget(button(u"Command4"_s, u"Forcer"_s, [this] { stretch(); }));
    row->addStretch(1);
    auto *back = button(u"Command2"_s, u"◀"_s, [this] { step(-1); });
    auto *on = button(u"Command1"_s, u"▶"_s, [this] { step(1); });
    back->setToolTip(u"Image précédente (Page préc.)"_s);
    on->setToolTip(u"Image suivante (Page suiv.)"_s);
    shortcut(
        Qt::Key_PageUp, [back] { back->click(); }, u"Image précédente"_s);
    shortcut(
        Qt::Key_PageDown, [on] { on->click(); }, u"Image suivante"_s);
    for (auto *arrow : {back, on})
        arrow->setFixedWidth(34);
    row->addWidget(back);
    if (between)
        row->addWidget(between);
    row->addWidget(on);
    if (heading)
        row->addWidget(heading);
    row->addStretch(1);
    row->addWidget(printCommand(u"Label10"_s));
    return row;
}

// The picture and the row below it, where the window's size puts them.
void Viewer::place(const TwipRect &picture)
{
    control(u"Image1"_s)->setGeometry(picture);
    for (const QString &below : {u"Command3"_s, u"Command4"_s, u"Label10"_s})
        control(below)->setTop(std::min(Screen::place().height - footHigh, outOfSight - 1)); // or they would leave
}

void Viewer::stretch()
{
    m_area->setWidgetResizable(true);
    const TwipRect window = Screen::place();
    place({0, 0, window.width - aroundWide, window.height - aroundHigh});
    said(true);
}

void Viewer::showAsLarge()
{
    const QSize own = sizeOfPicture(m_picture->path());
    if (!own.isEmpty()) {
        m_area->setWidgetResizable(false);
        m_picture->resize(own);
        const double width = own.width() * twipsPerPixel, height = own.height() * twipsPerPixel;
        const bool before = std::exchange(m_fitting, true);
        setSize(width + aroundWide, height + aroundHigh);
        m_fitting = before;
        if (isVisible())
            setPlace(Screen::place().left, Screen::place().top); // whole on the display
        place({0, 0, width, height});
    }
    said(false);
}

void Viewer::resizeEvent(QResizeEvent *event)
{
    Screen::resizeEvent(event);
    if (!m_fitting)
        stretch();
}

void Viewer::closing()
{
    const TwipRect window = Screen::place();
    media::keepViewerSize(context.main.writableSeason(), window.width, window.height);
}

}
