// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/gallery_page.h"

#include "kinds/empty_note.h"
#include "results/media_of_grand_prix.h"
#include "shell/screens.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

namespace circuidex {

namespace {

// The file that is being dragged; empty for anything else.
QString fileIn(const QDropEvent &event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

}

GalleryPage::GalleryPage(Context &theContext, const QString &name, const QString &title, const media::GalleryKind &kind,
                         int columns)
    : Screen(theContext, name, title), gallery(theContext.store, kind), m_columns(columns)
{
    hidden(u"iNdexx"_s, gallery.iNdexx);
    hidden(u"page"_s, gallery.page);
    gallery.show = [this](int slot, const std::string &path) {
        if (slot <= slotCount())
            showSlot(slot, path);
    };
}

void GalleryPage::takeSlot(QWidget *widget, Clicks &clicks)
{
    m_slots.push_back(widget);
    const int slot = slotCount();
    clicks.onClick = [this, slot] {
        select(slot);
        slotClicked();
    };
    clicks.onDoubleClick = [this, slot] { fileByChoice(slot); };
    widget->setFocusPolicy(slot == 1 ? Qt::StrongFocus : Qt::ClickFocus);
    widget->setAcceptDrops(true);
    widget->installEventFilter(this);
}

bool GalleryPage::isSlot(const QWidget *widget) const
{
    return std::ranges::find(m_slots, widget) != m_slots.end();
}

QLabel *GalleryPage::pageNumber()
{
    auto *number = styled({}, "large");
    bind(number, gallery.page);
    return number;
}

QLabel *GalleryPage::slotNumber()
{
    auto *number = styled({}, "large");
    const auto follow = [this, number](const std::string &) {
        const auto slot = gallery.selected();
        number->setText(slot ? QString::number(*slot) : QString());
    };
    follow({});
    listen(gallery.iNdexx, follow);
    return number;
}

void GalleryPage::noteWhenFree(QWidget &over, const QString &says)
{
    add(emptyNote, new EmptyNote(over, [this, says]() -> std::optional<Missing> {
            for (int slot = 1; slot <= slotCount(); ++slot)
                if (!gallery.path(slot).empty())
                    return std::nullopt;
            return Missing{says};
        }));
}

void GalleryPage::select(int slot)
{
    gallery.iNdexx.set(std::to_string(slot));
    showSelection();
}

// Of all slots only the selected one is a stop of the Tab key: the arrows lead to the others. The focus goes with it,
// once it is among them.
void GalleryPage::showSelection()
{
    const int selected = gallery.selected().value_or(0);
    const bool onSlot = isSlot(focusWidget());
    for (int slot = 1; slot <= slotCount(); ++slot) {
        showSelected(slot, slot == selected);
        slotWidget(slot)->setFocusPolicy(slot == std::max(selected, 1) ? Qt::StrongFocus : Qt::ClickFocus);
    }
    if (onSlot && selected > 0)
        slotWidget(selected)->setFocus();
}

void GalleryPage::fileByChoice(int slot)
{
    select(slot);
    const auto path = askForFile(slot);
    if (!path)
        return;
    gallery.file(slot, *path);
    slotFiled();
}

void GalleryPage::fileByDrop(int slot, const QString &path)
{
    select(slot);
    if (!results::canKeepPath(context.dialogs, path.toStdString()))
        return;
    gallery.file(slot, path.toStdString());
    slotFiled();
}

void GalleryPage::walk(int by)
{
    const auto selected = gallery.selected();
    const int to = selected ? *selected + by : 1;
    if (to < 1 || to > slotCount())
        return;
    select(to);
}

void GalleryPage::turnPage(int by)
{
    by > 0 ? gallery.nextPage() : gallery.previousPage();
    showSelection();
}

void GalleryPage::emptySlot()
{
    gallery.emptySelected();
}

void GalleryPage::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_PageDown:
        return turnPage(1);
    case Qt::Key_PageUp:
        return turnPage(-1);
    default:
        break;
    }
    if (!isSlot(focusWidget()))
        return Screen::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Right:
        return walk(1);
    case Qt::Key_Left:
        return walk(-1);
    case Qt::Key_Down:
        return walk(m_columns);
    case Qt::Key_Up:
        return walk(-m_columns);
    case Qt::Key_Delete:
        return emptySlot();
    default:
        Screen::keyPressEvent(event);
    }
}

bool GalleryPage::eventFilter(QObject *watched, QEvent *event)
{
    const auto at = std::ranges::find(m_slots, watched);
    const bool drag =
        event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove || event->type() == QEvent::Drop;
    if (!drag || at == m_slots.end())
        return Screen::eventFilter(watched, event);
    auto &drop = static_cast<QDropEvent &>(*event);
    const QString path = fileIn(drop);
    drop.setAccepted(!path.isEmpty());
    if (event->type() == QEvent::Drop && !path.isEmpty()) {
        drop.acceptProposedAction();
        fileByDrop(static_cast<int>(at - m_slots.begin()) + 1, path);
    }
    return true;
}

}
