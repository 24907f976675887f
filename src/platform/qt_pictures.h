#pragma once
// Reading picture files: any format that the system's Qt knows, decoded straight to the size that is shown, so that a
// large photo costs no more than its frame.
#include <QPixmap>
#include <QString>

namespace circuidex {

// True when the file holds a picture that can be shown.
bool canShowPicture(const QString &path);

// The picture fitted into the room, its proportions kept, never enlarged; null when there is none.
QPixmap scaledPicture(const QString &path, QSize room);

}
