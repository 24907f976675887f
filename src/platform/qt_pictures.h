// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reading picture files of any origin: JPEG, PNG, GIF, BMP and WebP, told by their content and never by their name. What a
// file claims is checked before it is decoded, and it is decoded at the size that is shown, so that neither a large photo
// nor a file made to do harm takes more than 100 MB; such a one isn't shown.
#include <QFuture>
#include <QImage>
#include <QString>

namespace circuidex {

// True when the file holds a picture that can be shown. Reads its heading alone.
bool canShowPicture(const QString &path);

// Its size as it is shown, turned as its camera was held; empty when it can't be shown. Reads its heading alone.
QSize sizeOfPicture(const QString &path);

// True for a picture small enough to be decoded between two frames of the screen.
bool isQuickPicture(const QString &path);

// The picture fitted into the room, its proportions kept, never enlarged; null when there is none. From any thread.
QImage scaledPicture(const QString &path, QSize room);

// The same off the event loop, in the order asked for; what was cancelled isn't begun.
QFuture<QImage> startPicture(const QString &path, QSize room);

// Waits until what was started has reached those who watch it; false when nothing was started since the last call.
bool awaitPictures();

}
