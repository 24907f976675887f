// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/tab_order.h"

#include <QLayout>
#include <QWidget>

#include <vector>

namespace circuidex {

namespace {

void collect(const QLayout *layout, std::vector<QWidget *> &stops)
{
    for (int i = 0; layout && i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        collect(item->layout(), stops);
        QWidget *widget = item->widget();
        if (widget && (widget->focusPolicy() & Qt::TabFocus))
            stops.push_back(widget);
        else if (widget)
            collect(widget->layout(), stops);
    }
}

}

QWidget *orderTabs(QWidget &body)
{
    std::vector<QWidget *> stops;
    collect(body.layout(), stops);
    for (std::size_t i = 1; i < stops.size(); ++i)
        QWidget::setTabOrder(stops[i - 1], stops[i]);
    return stops.empty() ? nullptr : stops.front();
}

}
