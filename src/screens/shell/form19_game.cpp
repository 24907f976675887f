// SPDX-License-Identifier: GPL-3.0-or-later
// Form19, the small game behind a word typed as a Grand Prix: a counter runs until a number is drawn, and the player
// looks for that number.
#include "shell/look.h"
#include "shell/screens.h"
#include "store/store.h"

#include <QBoxLayout>
#include <QElapsedTimer>

namespace circuidex::screens {

namespace {

constexpr qint64 highest = 10000;

class Form19 : public Screen {
public:
    Form19(Context &context, const QString &name, const QString &title);

private:
    void draw(); // Command2
    void compare(); // Command1
    qint64 number() const;

    QElapsedTimer m_counter; // runs through the numbers, one a microsecond
    std::optional<qint64> m_drawn;
    Field m_guess;
    Label *m_answer = nullptr;
};

Form19::Form19(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    m_counter.start();
    auto *guess = add(u"Text1"_s, new Edit);
    guess->setAlignment(Qt::AlignCenter);
    bind(guess, m_guess);
    connect(guess, &QLineEdit::returnPressed, this, [this] { compare(); });
    m_answer = add(u"Label2"_s, new Label);
    m_answer->setAlignment(Qt::AlignCenter);
    m_answer->setObjectName(u"large"_s);
    auto *ask = button(u"Command1"_s, u"Plus ou Moins?"_s, [this] { compare(); });
    ask->makeMain();
    auto *row = new QHBoxLayout;
    row->setSpacing(look::gap);
    row->addWidget(button(u"Command2"_s, u"Tirer un nombre"_s, [this] { draw(); }));
    row->addWidget(guess);
    row->addWidget(ask);
    auto *layout = new QVBoxLayout;
    layout->setSpacing(look::gap);
    layout->addWidget(add(u"Label1"_s, new Label(u"Trouver un nombre entre 1 et 10000"_s)));
    layout->addLayout(row);
    layout->addWidget(m_answer);
    page()->addWidget(card({}, layout));
    resize(420, sizeHint().height());
    guess->setFocus();
}

void Form19::draw()
{
    m_drawn.reset();
    m_drawn = number();
    m_answer->setText({});
}

qint64 Form19::number() const
{
    return m_drawn ? *m_drawn : m_counter.nsecsElapsed() / 1000 % highest + 1;
}

void Form19::compare()
{
    const auto guess = context.store.numbers().value(m_guess.text());
    if (!guess)
        return;
    const auto sought = double(number());
    m_answer->setText(*guess < sought       ? u"C'est plus"_s
                          : *guess > sought ? u"C'est moins"_s
                                            : u"C'est le bon nombre !"_s);
}

}

ScreenRows form19()
{
    return {screenRow<Form19>(u"Form19"_s, u"Jeu +/-"_s)};
}

}
