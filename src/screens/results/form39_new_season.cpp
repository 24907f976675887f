// Form39, the passage to a new season: who is champion, and on to the next year.
#include "kinds/picker.h"
#include "results/main_record.h"
#include "results/new_season.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/history.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

class Form39 : public Screen {
public:
    Form39(Context &context, const QString &name, const QString &title);

private:
    QLayout *championRow();
    std::string championName() const;
    void pass();

    results::MainRecord &m_main;
    Button *m_ok = nullptr;
    Field m_champion; // Text40, his number
    Field m_name; // Text1
    Field m_archived; // cham, the name that the archive gets
};

Form39::Form39(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title), m_main(theContext.main)
{
    hidden(u"cham"_s, m_archived);
    auto *intention = styled(
        u"La saison de Formule 1 est terminée, et vous voulez préparer la saison suivante. Pour cela "
                       "cliquez sur la case blanche et séléctionnez le pilote vainqueur (Par défaut est inscrit le "
                       "pilote ayant le plus de points)"_s,
        "plain");
    intention->setWordWrap(true);
    auto *row = championRow();
    m_ok = button(u"Command1"_s, u"OK"_s, [this] { pass(); });
    m_ok->makeMain();
    m_ok->setMinimumWidth(120);
    m_ok->setToolTip(u"Passer à la saison suivante"_s);
    auto *foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(m_ok);
    auto *layout = page();
    layout->addWidget(intention);
    layout->addWidget(card({}, row));
    layout->addLayout(foot);
    setFixedSize(440, std::max(heightForWidth(440), 220));
    if (const auto leader = results::championshipLeader(m_main.season()))
        m_champion.set(std::to_string(*leader));
}

// The name follows the number by a timer.
QLayout *Form39::championRow()
{
    auto *number = add(u"Text40"_s, new Edit);
    number->setFixedWidth(48);
    number->setAlignment(Qt::AlignRight);
    number->setToolTip(u"N° du champion (Double-clic = Liste)"_s);
    bind(number, m_champion);
    auto *shown = add(u"Text1"_s, new Edit);
    shown->setProperty("title", true);
    shown->setProperty("choice", true);
    shown->setReadOnly(true);
    shown->setCursor(Qt::PointingHandCursor);
    shown->setToolTip(u"Cliquez ici pour choisir le champion"_s);
    bind(shown, m_name);
    const auto choose = [this] { openPicker(context.screens, PickList::drivers, u"winner"_s); };
    number->onDoubleClick = choose;
    shown->onClick = choose;
    connect(shown, &QLineEdit::returnPressed, this, choose);
    // There is no way back from the passage: Enter in the box only leads on to the button.
    connect(number, &QLineEdit::returnPressed, this, [this] {
        m_name.set(championName());
        m_ok->setFocus();
    });
    auto &follow =
        timer(u"Timer1"_s, 500, TimerControl::Kind::standing, [this] { m_name.set(championName()); });
    for (Field *of : {&m_champion, &m_main.an})
        listen(*of, [&follow](const std::string &) { follow.kick(); });
    auto *heading = styled({}, "caption");
    const auto name = [heading](const std::string &year) {
        heading->setText(u"Champion du monde de la saison %1"_s.arg(qt(year)));
    };
    name(m_main.an.text());
    listen(m_main.an, name);
    auto *grid = new QGridLayout;
    grid->addWidget(heading, 0, 0, 1, 3);
    grid->addWidget(styled(u"N°"_s, "hint"), 1, 0);
    grid->addWidget(number, 1, 1);
    grid->addWidget(shown, 1, 2);
    grid->setColumnStretch(2, 1);
    return grid;
}

std::string Form39::championName() const
{
    return m_main.season().nom(m_champion.text());
}

void Form39::pass()
{
    m_archived.set(championName());
    const auto next = m_main.store.numbers().stepped(m_main.an.text(), 1);
    const Action undoable(context.store, "passage à la saison " + next); // with the points that go back to 0
    {
        const Waiting waiting(*this);
        if (!results::passToNextSeason(m_main, m_champion.text()))
            return;
    }
    if (m_main.clearTotalsSoon)
        m_main.clearTotalsSoon(m_main.an.text());
    close();
}

}

ScreenRows form39()
{
    return {screenRow<Form39>(u"Form39"_s, u"Créer une nouvelle saison"_s)};
}

}
