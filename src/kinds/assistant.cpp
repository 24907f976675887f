#include "kinds/assistant.h"

#include "shell/look.h"
#include "shell/text.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QHeaderView>

namespace circuidex {

namespace {

const QString finished = u"OK"_s;

QString nameControl()
{
    return u"Text9"_s;
}

}

Assistant::Assistant(Context &theContext, const QString &name, const QString &title, const QString &question,
                     int places) :
    Screen(theContext, name, title),
    m_main(theContext.main), m_places(places)
{
    layOut(question);
    m_search->setFocus();
}

void Assistant::layOut(const QString &question)
{
    m_counter = add(u"Label1"_s, new Label(u"1"_s));
    m_counter->setObjectName(u"large"_s);
    auto *ask = new QHBoxLayout;
    ask->addWidget(styled(question, "caption"));
    ask->addWidget(m_counter);
    ask->addStretch(1);
    m_search = add(u"Recherche"_s, new Edit);
    m_search->setPlaceholderText(u"Tapez le début d'un nom, puis Entrée"_s);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString &typed) { narrow(typed); });
    connect(m_search, &QLineEdit::returnPressed, this, [this] { enter(); });
    auto *left = new QVBoxLayout;
    left->setSpacing(look::gap);
    left->addLayout(ask);
    left->addWidget(m_search);
    left->addWidget(names());
    left->addStretch(1);
    auto *both = new QHBoxLayout;
    both->setSpacing(look::gap);
    auto *leftCard = card({}, left);
    both->addWidget(leftCard, 3);
    both->addWidget(sofar(), 2);
    auto *validateButton = button(u"Command1"_s, u"Valider"_s, [this] { validate(); });
    validateButton->makeMain();
    auto *skipButton = button(u"Command2"_s, u"Passer"_s, [this] { skip(); });
    skipButton->setToolTip(u"Continuer sans enregistrer cette étape"_s);
    auto *bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(skipButton);
    bottom->addWidget(validateButton);
    auto *layout = page();
    layout->addLayout(both, 1);
    layout->addLayout(bottom);
    resize(760, 560);
}

QWidget *Assistant::names()
{
    auto *inside = new QWidget;
    auto *grid = new QGridLayout(inside);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(4);
    const Season season = m_main.season();
    for (int i = 0; i < driverSlots; ++i) {
        const QString driver = qt(season.nom(i + 1));
        auto *made = button(nameControl(), driver, [this, i] { choose(i); }, i);
        made->setProperty("name", true);
        made->setFixedHeight(26);
        if (driver.isEmpty()) { // a slot without a driver keeps its place in the list
            QSizePolicy policy = made->sizePolicy();
            policy.setRetainSizeWhenHidden(true);
            made->setSizePolicy(policy);
            made->hide();
        }
        grid->addWidget(made, i % 13, i / 13);
    }
    auto *nobody = button(u"Text10"_s, u"Aucun"_s, [this] { choose(std::nullopt); });
    nobody->setToolTip(u"Personne à cette place"_s);
    grid->addWidget(nobody, 13, 0, 1, 2);
    return inside;
}

// What has been answered so far, for the eye alone.
QWidget *Assistant::sofar()
{
    m_sofar = table({{{}, u"Place"_s, 52, Qt::AlignRight}, {u"choisi"_s, u"Pilote"_s}},
                    m_places);
    for (int place = 1; place <= m_places; ++place)
        m_sofar->model().cell(place - 1, 0).setText(QString::number(place));
    m_sofar->setFocusPolicy(Qt::NoFocus);
    m_sofar->setSelectionMode(QAbstractItemView::NoSelection);
    if (m_places > classifiedPlaces)
        m_sofar->verticalHeader()->setDefaultSectionSize(18);
    return m_sofar;
}

void Assistant::choose(std::optional<int> nameIndex)
{
    bool counting = false;
    const int place = m_counter->text().toInt(&counting);
    if (!counting || place < 1 || place > m_places)
        return;
    const QString driver = nameIndex ? text(nameControl(), *nameIndex) : QString();
    taken(place, nameIndex ? QString::number(*nameIndex + 1) : QString(), driver);
    if (nameIndex)
        control(nameControl(), *nameIndex)->setTop(100000);
    m_sofar->set(u"choisi", place - 1, nameIndex ? driver : u"–"_s);
    m_sofar->scrollTo(m_sofar->model().index(std::min(place, m_places - 1), 0));
    m_counter->setText(place < m_places ? QString::number(place + 1) : finished);
    m_search->clear();
    m_search->setFocus();
}

// Names that don't hold what was typed fade; nothing moves.
void Assistant::narrow(const QString &typed)
{
    for (int i = 0; i < driverSlots; ++i) {
        auto *name = static_cast<WidgetControl *>(control(nameControl(), i));
        name->widget()->setEnabled(folded(name->text()).contains(folded(typed)));
    }
}

// The first name that fits; with every place answered, the end of this stage.
void Assistant::enter()
{
    const QString typed = folded(m_search->text().trimmed());
    if (m_counter->text() == finished)
        return validate();
    if (typed.isEmpty())
        return;
    const auto fits = [&](auto matches) {
        for (int i = 0; i < driverSlots; ++i) {
            const Control *name = control(nameControl(), i);
            if (!name->text().isEmpty() && name->inSight() && matches(folded(name->text()))) {
                choose(i);
                return true;
            }
        }
        return false;
    };
    if (fits([&](const QString &name) { return name.startsWith(typed); }) ||
        fits([&](const QString &name) { return name.contains(u' ' + typed); }) ||
        fits([&](const QString &name) { return name.contains(typed); }))
        return;
    if (u"aucun"_s.startsWith(typed))
        choose(std::nullopt);
}

}
