#include "kinds/assistant.h"

#include "kinds/empty_note.h"
#include "kinds/name_search.h"
#include "shell/look.h"

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
    for (const Qt::Key enterKey : {Qt::Key_Return, Qt::Key_Enter})
        shortcut(
            Qt::CTRL | enterKey, [this] { finish(); }, u"Valider"_s);
    tellKey(u"Retour arrière"_s, u"Reprendre la dernière réponse, dans le champ vide"_s);
    showPlace(1);
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
    connect(m_search, &QLineEdit::textChanged, this, [this] { narrow(); });
    connect(m_search, &QLineEdit::returnPressed, this, [this] { enter(); });
    m_search->onBackspaceInEmpty = [this] { takeBack(); };
    m_hint = new Label;
    m_hint->setObjectName(u"hint"_s);
    auto *left = new QVBoxLayout;
    left->setSpacing(look::gap);
    left->addLayout(ask);
    left->addWidget(m_search);
    left->addWidget(m_hint);
    left->addWidget(names());
    left->addStretch(1);
    auto *both = new QHBoxLayout;
    both->setSpacing(look::gap);
    auto *leftCard = card({}, left);
    both->addWidget(leftCard, 3);
    both->addWidget(sofar(), 2);
    auto *validateButton = button(u"Command1"_s, u"Valider"_s, [this] { validate(); });
    validateButton->makeMain();
    validateButton->setToolTip(u"Enregistrer cette étape (Ctrl+Entrée)"_s);
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
    add(emptyNote, new EmptyNote(*inside, [this]() -> std::optional<Missing> {
            if (!results::firstLack(m_main.season(), results::Need::drivers))
                return std::nullopt;
            return Missing{u"Pas encore de pilotes en %1 :\n« Ouvrir/Modifier Pilote » les inscrit."_s
                               .arg(qt(m_main.an.text()))};
        }));
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
    m_answers.push_back({place, nameIndex, taken(place, nameIndex ? QString::number(*nameIndex + 1) : QString(), driver)});
    if (nameIndex)
        setFree(*nameIndex, false);
    m_sofar->set(u"choisi", place - 1, nameIndex ? driver : u"–"_s);
    showPlace(place + 1);
}

// A name taken stays where it was, faint and deaf, and is out of sight for whoever asks.
void Assistant::setFree(int nameIndex, bool free)
{
    auto *name = static_cast<WidgetControl *>(control(nameControl(), nameIndex));
    if (free)
        name->putBack();
    else
        name->setTop(100000);
    name->widget()->setEnabled(free);
    name->widget()->setVisible(!name->text().isEmpty());
}

void Assistant::takeBack()
{
    if (m_answers.empty())
        return;
    const Answer last = std::move(m_answers.back());
    m_answers.pop_back();
    last.undo();
    if (last.nameIndex)
        setFree(*last.nameIndex, true);
    m_sofar->set(u"choisi", last.place - 1, {});
    showPlace(last.place);
}

// The place that is asked for next, ready to be answered.
void Assistant::showPlace(int place)
{
    m_sofar->scrollTo(m_sofar->model().index(std::min(place, m_places) - 1, 0));
    m_counter->setText(place <= m_places ? QString::number(place) : finished);
    m_search->clear();
    m_search->setFocus();
    narrow();
}

QStringList Assistant::freeNames() const
{
    QStringList names;
    for (int i = 0; i < driverSlots; ++i) {
        const Control *name = control(nameControl(), i);
        names << (name->inSight() ? name->text() : QString());
    }
    return names;
}

// "Aucun" comes behind all names that begin so.
bool Assistant::meansNobody(const QString &typed) const
{
    const auto best = bestHit(freeNames(), typed);
    return fitOf(u"Aucun"_s, typed) == Fit::beginning && !(best && best->chooses());
}

// Names that don't hold what was typed fade, the one that Enter takes is in colour; nothing moves.
void Assistant::narrow()
{
    const QString typed = m_search->text();
    const QStringList names = freeNames();
    const auto best = bestHit(names, typed);
    const bool nobody = meansNobody(typed), chooses = best && best->chooses();
    for (int i = 0; i < driverSlots; ++i) {
        Control *name = control(nameControl(), i);
        const bool fits = name->inSight() && (typed.trimmed().isEmpty() || fitOf(names.at(i), typed));
        name->setFore(fits ? std::nullopt : std::optional(look::faint));
        name->setBack(chooses && best->index == i ? std::optional(look::chosen) : std::nullopt);
    }
    control(u"Text10"_s)->setBack(nobody ? std::optional(look::chosen) : std::nullopt);
    m_hint->setText(m_counter->text() == finished ? u"Toutes les places ont leur réponse : Entrée valide"_s
                    : typed.trimmed().isEmpty()   ? u"Ctrl+Entrée valide, Retour arrière reprend le dernier nom"_s
                    : chooses || nobody           ? u"Entrée prend le nom en couleur"_s
                    : best                        ? u"Aucun mot ne commence ainsi : Entrée ne prend personne"_s
                                                  : u"Aucun nom libre ne contient ces lettres"_s);
}

// Letters that wait for their Enter get it; those that choose nobody keep the stage open.
void Assistant::finish()
{
    if (m_counter->text() != finished && !m_search->text().isEmpty())
        enter();
    if (m_counter->text() == finished || m_search->text().isEmpty())
        press(u"Command1"_s);
}

// The name in colour; with every place answered, the end of this stage.
void Assistant::enter()
{
    const QString typed = m_search->text();
    if (m_counter->text() == finished)
        return press(u"Command1"_s);
    if (const auto best = bestHit(freeNames(), typed); best && best->chooses())
        choose(best->index);
    else if (meansNobody(typed))
        choose(std::nullopt);
}

}
