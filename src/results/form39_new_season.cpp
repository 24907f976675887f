#include "results/form39_new_season.h"

#include "results/form1_main.h"
#include "results/form26_pickers.h"
#include "results/new_season.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex {

Form39::Form39(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title), m_main(theContext.main)
{
    hidden(QStringLiteral("cham"), m_archived);
    auto *intention = styled(
        QStringLiteral("La saison de Formule 1 est terminée, et vous voulez préparer la saison suivante. Pour cela "
                       "cliquez sur la case blanche et séléctionnez le pilote vainqueur (Par défaut est inscrit le "
                       "pilote ayant le plus de points)"),
        "plain");
    intention->setWordWrap(true);
    auto *row = championRow();
    m_ok = button(QStringLiteral("Command1"), QStringLiteral("OK"), [this] { pass(); });
    m_ok->makeMain();
    m_ok->setMinimumWidth(120);
    m_ok->setToolTip(QStringLiteral("Passer à la saison suivante"));
    auto *foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(m_ok);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(12);
    layout->addWidget(intention);
    layout->addWidget(card({}, row));
    layout->addLayout(foot);
    setFixedSize(440, std::max(heightForWidth(440), 220));
    if (const auto leader = championshipLeader(m_main.season()))
        m_champion.set(std::to_string(*leader));
}

// The name follows the number by a timer.
QLayout *Form39::championRow()
{
    auto *number = add(QStringLiteral("Text40"), new Edit);
    number->setFixedWidth(48);
    number->setAlignment(Qt::AlignRight);
    number->setToolTip(QStringLiteral("N° du champion (Double-clic = Liste)"));
    bind(number, m_champion);
    auto *shown = add(QStringLiteral("Text1"), new Edit);
    shown->setProperty("title", true);
    shown->setProperty("choice", true);
    shown->setReadOnly(true);
    shown->setCursor(Qt::PointingHandCursor);
    shown->setToolTip(QStringLiteral("Cliquez ici pour choisir le champion"));
    bind(shown, m_name);
    const auto choose = [this] { openPicker(context.screens, PickList::drivers, QStringLiteral("winner")); };
    number->onDoubleClick = choose;
    shown->onClick = choose;
    connect(shown, &QLineEdit::returnPressed, this, choose);
    // There is no way back from the passage: Enter in the box only leads on to the button.
    connect(number, &QLineEdit::returnPressed, this, [this] {
        m_name.set(championName());
        m_ok->setFocus();
    });
    auto &follow =
        timer(QStringLiteral("Timer1"), 500, TimerControl::Kind::standing, [this] { m_name.set(championName()); });
    for (Field *of : {&m_champion, &m_main.an})
        listen(*of, [&follow](const std::string &) { follow.kick(); });
    auto *heading = styled({}, "caption");
    const auto name = [heading](const std::string &year) {
        heading->setText(QStringLiteral("Champion du monde de la saison %1").arg(qt(year)));
    };
    name(m_main.an.text());
    listen(m_main.an, name);
    auto *grid = new QGridLayout;
    grid->addWidget(heading, 0, 0, 1, 3);
    grid->addWidget(styled(QStringLiteral("N°"), "hint"), 1, 0);
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
    {
        const Waiting waiting(*this);
        if (!passToNextSeason(m_main, m_champion.text()))
            return;
    }
    if (auto *main = dynamic_cast<Form1 *>(context.screens.find(QStringLiteral("Form1"))))
        main->clearTotalsSoon(qt(m_main.an.text()));
    close();
}

}
