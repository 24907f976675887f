// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/letter_line.h"

#include <QAbstractButton>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

namespace circuidex {

namespace {

class LetterLine : public QWidget {
public:
    LetterLine(QAbstractButton &button, QChar letter) : QWidget(&button), m_button(button), m_letter(letter)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        button.installEventFilter(this);
        resize(button.size());
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            resize(m_button.size());
        return false;
    }

    void paintEvent(QPaintEvent *) override
    {
        const QString caption = m_button.text().replace(QLatin1String("&&"), QLatin1String("&"));
        const qsizetype at = placeOfLetter(caption, m_letter);
        if (at < 0 || !m_button.isEnabled())
            return;
        QStyleOptionButton option;
        option.initFrom(&m_button);
        const QRect words = style()->subElementRect(QStyle::SE_PushButtonContents, &option, &m_button);
        const QFontMetrics metrics(m_button.font());
        const bool left = m_button.property("quietly").toBool();
        const int all = metrics.horizontalAdvance(caption);
        const int start =
            words.left() + (left ? 0 : (words.width() - all) / 2) + metrics.horizontalAdvance(caption.left(at));
        const int below = words.center().y() + (metrics.ascent() - metrics.descent()) / 2 + 3;
        QPainter painter(this);
        painter.setPen(m_button.palette().color(QPalette::ButtonText));
        painter.drawLine(start, below, start + metrics.horizontalAdvance(caption.at(at)) - 1, below);
    }

private:
    QAbstractButton &m_button;
    QChar m_letter;
};

}

qsizetype placeOfLetter(const QString &caption, QChar letter)
{
    const qsizetype from = caption.startsWith(u'[') ? caption.indexOf(u']') + 1 : 0;
    for (qsizetype at = from; at < caption.size(); ++at)
        if (caption.at(at).toUpper() == letter.toUpper() && (at == 0 || !caption.at(at - 1).isLetter()))
            return at;
    return caption.indexOf(letter, from, Qt::CaseInsensitive);
}

void underline(QAbstractButton &button, QChar letter)
{
    new LetterLine(button, letter);
}

}
