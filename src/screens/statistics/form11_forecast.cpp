// Form11, the forecast: a podium computed for the Grand Prix after the one that the main screen shows.
#include "kinds/empty_note.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "statistics/forecast.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

const QString steps[] = {u"Label1"_s, u"Label2"_s, u"Label3"_s};
const QString stepCaptions[] = {u"1er:"_s, u"2nd"_s, u"3ème"_s};

class Form11 : public Screen {
public:
    Form11(Context &context, const QString &name, const QString &title);

private:
    QLayout *selection();
    QWidget *podium();
    void walk(const QString &mainScreenButton);
    void compute();

    Label *m_shown = nullptr; // the Grand Prix under the cursor
};

Form11::Form11(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    for (int place = 0; place < 4; ++place)
        for (const QString &list : {u"Label4"_s, u"Label5"_s})
            hidden(list, {}, {}, place);
    auto *layout = page();
    layout->addWidget(styled(u"Podium calculé pour le grand prix suivant votre séléction:"_s, "caption"));
    layout->addLayout(selection());
    layout->addWidget(podium());
    layout->addWidget(
        button(u"Command1"_s, u"Informations fiabilité"_s,
               [this] {
                   context.dialogs.message(
                       "Ceci est juste un algorithme qui analyse la progression de chaque pilote sur une "
                       "période de plusiques Grands-Prix et fournit les pilotes qui ont le plus de chance "
                       "d'être sur le podium.");
               }),
        0, Qt::AlignRight);
    setFixedWidth(560);
    compute();
}

QLayout *Form11::selection()
{
    const auto arrow = [this](const QString &name, const QString &caption, const QString &tip, Qt::Key key,
                              const QString &mainScreenButton) {
        Button *made = button(name, caption, [this, mainScreenButton] { walk(mainScreenButton); });
        made->setToolTip(tip);
        made->setFixedWidth(36);
        shortcut(
            key, [this, mainScreenButton] { walk(mainScreenButton); }, tip);
        return made;
    };
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(arrow(u"Command2"_s, u"<"_s, u"Grand Prix précédent"_s, Qt::Key_Left, u"Command9"_s));
    row->addWidget(arrow(u"Command3"_s, u">"_s, u"Grand Prix suivant"_s, Qt::Key_Right, u"Command8"_s));
    row->addSpacing(8);
    m_shown = new Label;
    m_shown->setObjectName(u"large"_s);
    row->addWidget(m_shown, 1);
    return row;
}

QWidget *Form11::podium()
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->setColumnStretch(1, 1);
    for (int step = 0; step < 3; ++step) {
        auto *names = add(steps[step], new Label);
        names->setWordWrap(true);
        names->setMinimumHeight(2 * names->fontMetrics().lineSpacing()); // nothing moves with a second line
        grid->addWidget(styled(stepCaptions[step], "place"), step, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(names, step, 1);
    }
    auto *made = card({}, grid);
    add(emptyNote, noteOver(*made, context));
    return made;
}

void Form11::walk(const QString &mainScreenButton)
{
    if (const Screen *main = context.screens.find(u"Form1"_s))
        main->press(mainScreenButton);
    compute();
}

void Form11::compute()
{
    const Season season = context.main.season();
    const int slot = season.numbers().whole(context.main.Label40.text(), 0, gpSlots - 1).value_or(0);
    m_shown->setText(qt(season.namegp(slot)));
    const auto found = statistics::forecast(season, slot);
    if (!found)
        return context.dialogs.message("La saison n'est pas assez avancée pour pouvoir trouver la podium du prochain "
                                       "Grand Prix. A partir du second "
                                       "Grand Prix vous pourrez consulter cette fenêtre");
    for (int place = 0; place < 4; ++place) {
        setText(u"Label4"_s, qt(found->last[static_cast<std::size_t>(place)]), place);
        setText(u"Label5"_s, qt(found->before[static_cast<std::size_t>(place)]), place);
    }
    for (int step = 0; step < 3; ++step)
        setText(steps[step], qt(found->steps[static_cast<std::size_t>(step)]));
}

}

ScreenRows form11()
{
    return {screenRow<Form11>(u"Form11"_s, u"Pronostics"_s)};
}

}
