#include "platform/qt_pictures.h"

#include <QImageReader>

namespace circuidex {

bool canShowPicture(const QString &path)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return !path.isEmpty() && reader.canRead();
}

QPixmap scaledPicture(const QString &path, QSize room)
{
    if (path.isEmpty() || room.isEmpty())
        return {};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize full = reader.size();
    if (full.isValid() && (full.width() > room.width() || full.height() > room.height()))
        reader.setScaledSize(full.scaled(room, Qt::KeepAspectRatio));
    const QImage image = reader.read();
    if (image.isNull() || (image.width() <= room.width() && image.height() <= room.height()))
        return QPixmap::fromImage(image);
    return QPixmap::fromImage(image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

}
