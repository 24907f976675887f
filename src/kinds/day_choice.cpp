// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/day_choice.h"

#include "shell/look.h"
#include "shell/text.h"

#include <QBoxLayout>
#include <QCalendarWidget>
#include <QFrame>
#include <QLocale>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace circuidex {

namespace {

QCalendarWidget *calendarOf(int year, std::optional<results::Day> near)
{
    auto *made = new QCalendarWidget;
    made->setLocale(QLocale(QLocale::French, QLocale::France)); // also the week's first day
    made->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    made->setDateRange(QDate(year, 1, 1), QDate(year, 12, 31));
    made->setSelectedDate(near
                              ? QDate(year, near->month, std::min(near->day, QDate(year, near->month, 1).daysInMonth()))
                              : QDate(year, 3, 1));
    QTextCharFormat weekend = made->weekdayTextFormat(Qt::Sunday);
    weekend.setForeground(look::written(look::ink));
    weekend.setFontWeight(QFont::Bold); // races are run then
    made->setWeekdayTextFormat(Qt::Sunday, weekend);
    weekend.setFontWeight(QFont::Normal);
    made->setWeekdayTextFormat(Qt::Saturday, weekend);
    made->setGridVisible(false);
    made->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    for (const auto &[name, sign] :
         {std::pair(u"qt_calendar_prevmonth"_s, u"◀"_s), std::pair(u"qt_calendar_nextmonth"_s, u"▶"_s)})
        if (auto *arrow = made->findChild<QToolButton *>(name)) {
            arrow->setIcon({});
            arrow->setText(sign);
        }
    if (auto *years = made->findChild<QWidget *>(u"qt_calendar_yearbutton"_s))
        years->setEnabled(false); // the season says it
    return made;
}

// Below the box, on the display.
QPoint placeOf(const QWidget &below, const QSize &size)
{
    const QRect room = below.screen()->availableGeometry();
    const QPoint wanted = below.mapToGlobal(QPoint(0, below.height() + 1));
    const int above = wanted.y() - below.height() - 2 - size.height();
    return {std::max(room.left(), std::min(wanted.x(), room.right() - size.width())),
            wanted.y() + size.height() > room.bottom() ? std::max(room.top(), above) : wanted.y()};
}

}

void openDayChoice(QWidget *below, const QString &season, std::optional<results::Day> near,
                   std::function<void(results::Day)> chosen)
{
    bool isNumber = false;
    const int year = season.toInt(&isNumber);
    auto *frame = new QFrame(below->window(), Qt::Popup | Qt::FramelessWindowHint);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setObjectName(u"days"_s);
    auto *calendar = calendarOf(isNumber && year > 0 ? year : QDate::currentDate().year(), near);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar);
    const auto take = [frame, chosen = std::move(chosen)](const QDate &day) {
        chosen({day.day(), day.month()});
        frame->close();
    };
    QObject::connect(calendar, &QCalendarWidget::clicked, frame, take);
    QObject::connect(calendar, &QCalendarWidget::activated, frame, take);
    frame->adjustSize();
    frame->move(placeOf(*below, frame->size()));
    frame->show();
    calendar->setFocus();
}

}
