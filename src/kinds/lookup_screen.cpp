// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/lookup_screen.h"

#include "shell/look.h"

#include <QBoxLayout>
#include <QKeySequence>
#include <QShortcut>

namespace circuidex {

Edit *LookupScreen::box(QBoxLayout &row, const QString &caption, const QString &name, Field &field, int width,
                        std::function<void()> entered)
{
    auto *made = add(name, new Edit);
    made->setProperty("title", true);
    if (width > 0)
        made->setFixedWidth(width);
    if (width > 0 && width < 100)
        made->setAlignment(Qt::AlignCenter);
    bind(made, field);
    connect(made, &QLineEdit::returnPressed, this, std::move(entered));
    row.addWidget(styled(caption, "hint"));
    row.addWidget(made, width > 0 ? 0 : 1);
    return made;
}

Button *LookupScreen::arrow(const QString &sign, Arrow made)
{
    auto *step = button(made.control, sign, std::move(made.step));
    const bool plain = made.key == Qt::Key_PageUp || made.key == Qt::Key_PageDown;
    const QKeySequence keys(plain ? QKeyCombination(made.key) : Qt::CTRL | made.key);
    step->setToolTip(u"%1 (%2)"_s.arg(made.tip, keys.toString(QKeySequence::NativeText)));
    step->setFixedWidth(34);
    connect(new QShortcut(keys, this), &QShortcut::activated, step, [step] { step->click(); });
    return step;
}

void LookupScreen::arrows(QBoxLayout &row, Edit *around, Arrow back, Arrow on)
{
    row.insertWidget(row.indexOf(around), arrow(u"<"_s, std::move(back)));
    row.addWidget(arrow(u">"_s, std::move(on)));
}

Button *LookupScreen::list(const QString &name, std::function<void()> open)
{
    auto *made = button(name, u"Liste"_s, std::move(open));
    made->setToolTip(u"Choisir dans la liste (Ctrl+L)"_s);
    connect(new QShortcut(QKeySequence(u"Ctrl+L"_s), this), &QShortcut::activated, made,
            [made] { made->click(); });
    return made;
}

Button *LookupScreen::mainButton(const QString &name, const QString &caption, const QString &tip,
                                 std::function<void()> ask)
{
    auto *made = button(name, caption, std::move(ask));
    made->setToolTip(tip);
    made->makeMain();
    return made;
}

void LookupScreen::layOut(QWidget *question, QWidget *answer, QLayout *foot)
{
    auto *layout = page();
    layout->addWidget(question);
    layout->addWidget(answer, 0, Qt::AlignHCenter);
    layout->addLayout(foot);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QLayout *LookupScreen::foot(QWidget *atRight)
{
    auto *row = footRow(u"Label12"_s);
    if (atRight)
        row->addWidget(atRight);
    return row;
}

}
