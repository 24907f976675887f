// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/opening_picture.h"

#include "platform/qt_pictures.h"
#include "results/main_record.h"
#include "results/options.h"
#include "shell/screen.h"

#include <QPainter>
#include <QSvgRenderer>

namespace circuidex {

QString openingPicturePath(const Context &context)
{
    return qt(context.main.surroundings.findPicture(results::openingPicture(context.store)));
}

void OpeningPicture::paintEvent(QPaintEvent *event)
{
    if (canShowPicture(path())) {
        Picture::paintEvent(event);
        return;
    }
    static QSvgRenderer drawing(u":/images/circuidex.svg"_s);
    QPainter painter(this);
    QSizeF size = QSizeF(drawing.defaultSize()).scaled(this->size(), Qt::KeepAspectRatio);
    drawing.render(&painter, {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size});
}

}
