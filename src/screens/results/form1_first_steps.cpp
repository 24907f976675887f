// SPDX-License-Identifier: GPL-3.0-or-later
// The strip of the first steps on Form1: calendar, drivers, first race. It stands above everything else from the first
// start until a race is recorded, and leads on from each step to the next.
#include "screens/results/form1_main.h"
#include "shell/look.h"

#include <QBoxLayout>

#include <algorithm>

namespace circuidex::screens {

namespace {

struct FirstStep {
    QString caption, hint;
};

const std::array<FirstStep, 3> firstStepsOfAll{{
    {u"Calendrier"_s, u"D'abord les courses de la saison : un nom et une date par ligne, Entrée enregistre"_s},
    {u"Pilotes"_s, u"Puis les pilotes et leur écurie : Ctrl+S enregistre, Page suiv. passe au suivant"_s},
    {u"Enregistrer"_s, u"Et la première course : la grille, puis l'arrivée, nom par nom"_s},
}};
const QString stepButton = u"Etape"_s, stepHint = u"Conseil"_s;

}

void Form1::makeSteps()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(look::gap);
    row->addWidget(styled(u"Pour commencer:"_s, "caption"));
    for (int step = 1; step <= int(firstStepsOfAll.size()); ++step) {
        auto *made = button(
            stepButton, {}, [this, step] { takeStep(step); }, step);
        made->setFixedWidth(130);
        row->addWidget(made);
    }
    auto *hint = add(stepHint, new Label);
    hint->setObjectName(u"hint"_s);
    row->addWidget(hint, 1);
    m_steps = card({}, row);
    static_cast<QVBoxLayout *>(body()->layout())->insertWidget(0, m_steps);
}

// Once a race is in they are gone, whatever season is open and whatever is deleted later.
void Form1::showSteps()
{
    const auto steps = m_begun ? std::nullopt : results::firstSteps(m_main.season());
    m_begun = !steps;
    if (steps && !m_steps)
        makeSteps();
    if (m_steps && m_begun && !m_steps->isHidden()) // on to the standings
        static_cast<WidgetControl *>(control(u"Command32"_s))->widget()->setFocus();
    if (m_steps) {
        m_steps->setVisible(!m_begun);
        m_steps->setEnabled(!m_begun);
    }
    if (m_begun)
        return;
    const std::array<bool, 3> done{steps->calendar, steps->drivers, false};
    const auto next = std::size_t(std::find(done.begin(), done.end(), false) - done.begin());
    for (std::size_t i = 0; i < done.size(); ++i) {
        auto *made = static_cast<WidgetControl *>(control(stepButton, int(i) + 1))->widget();
        setText(stepButton, (done[i] ? u"✓ "_s : u"%1. "_s.arg(i + 1)) + firstStepsOfAll[i].caption, int(i) + 1);
        setMark(*made, "main", i == next);
        if (i == next)
            made->setFocus();
    }
    setText(stepHint, firstStepsOfAll[next].hint);
}

void Form1::takeStep(int step)
{
    if (step == 1)
        press(u"Command21"_s);
    else if (step == 2)
        context.screens.open(u"Form3"_s);
    else {
        if (m_main.gp.empty())
            press(u"Label36"_s); // the first race of the calendar
        press(u"Command26"_s);
    }
}

}
