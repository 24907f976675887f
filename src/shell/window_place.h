#pragma once
// Where a window stands when it opens: where its user left it, or else beside what it was opened from. All in pixels of
// the whole desktop.
#include <QList>
#include <QRect>
#include <QString>

#include <optional>

namespace circuidex {

// As the user left a window: where it stood before it was maximised, if it was.
struct KeptPlace {
    QRect at;
    bool maximised = false;
    bool operator==(const KeptPlace &) const = default;
};

QString asText(const KeptPlace &place);
std::optional<KeptPlace> keptPlace(const QString &text); // absent for what can't be a window's place

// Moved onto the room as far as it must be; what is larger than the room begins at its corner.
QRect wholeOn(const QRect &room, const QRect &window);

// Covering as little as possible of the window that it is opened from, and least of all of the group of buttons there
// that has what was pressed: at the right, at the left, below, above. Not on a corner that another window has, but a
// little further. The group may be empty.
QPoint besideOpener(const QSize &window, const QRect &opener, const QRect &group, const QRect &room,
                    const QList<QPoint> &taken);

}
