// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the program's icon in the sizes that desktops ask for: make_icons ICON.svg FOLDER SIZE... makes FOLDER/SIZE.png.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdlib>

int main(int argc, char **argv)
{
    QSvgRenderer drawing(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    bool whole = drawing.isValid() && argc > 3;
    for (int i = 3; i < argc; ++i) {
        const int size = std::atoi(argv[i]);
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawing.render(&painter);
        painter.end();
        whole = image.save(QString::fromLocal8Bit(argv[2]) + QStringLiteral("/%1.png").arg(size)) && whole;
    }
    return whole ? 0 : 1;
}
