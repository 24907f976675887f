#include "results/form49_assistants.h"

#include "results/form1_main.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QHeaderView>

namespace circuidex {

namespace {

const QString finished = QStringLiteral("OK");

QString nameControl()
{
    return QStringLiteral("Text9");
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
    m_counter = add(QStringLiteral("Label1"), new Label(QStringLiteral("1")));
    m_counter->setObjectName(QStringLiteral("large"));
    auto *ask = new QHBoxLayout;
    ask->addWidget(styled(question, "caption"));
    ask->addWidget(m_counter);
    ask->addStretch(1);
    m_search = add(QStringLiteral("Recherche"), new Edit);
    m_search->setPlaceholderText(QStringLiteral("Tapez le début d'un nom, puis Entrée"));
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
    auto *validateButton = button(QStringLiteral("Command1"), QStringLiteral("Valider"), [this] { validate(); });
    validateButton->makeMain();
    auto *skipButton = button(QStringLiteral("Command2"), QStringLiteral("Passer"), [this] { skip(); });
    skipButton->setToolTip(QStringLiteral("Continuer sans enregistrer cette étape"));
    auto *bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(skipButton);
    bottom->addWidget(validateButton);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(look::gap);
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
    auto *nobody = button(QStringLiteral("Text10"), QStringLiteral("Aucun"), [this] { choose(std::nullopt); });
    nobody->setToolTip(QStringLiteral("Personne à cette place"));
    grid->addWidget(nobody, 13, 0, 1, 2);
    return inside;
}

// What has been answered so far, for the eye alone.
QWidget *Assistant::sofar()
{
    m_sofar = table({{{}, QStringLiteral("Place"), 52, Qt::AlignRight}, {QStringLiteral("choisi"), QStringLiteral("Pilote")}},
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
    if (!counting)
        return;
    const QString driver = nameIndex ? text(nameControl(), *nameIndex) : QString();
    taken(place, nameIndex ? QString::number(*nameIndex + 1) : QString(), driver);
    if (nameIndex)
        control(nameControl(), *nameIndex)->setTop(100000);
    m_sofar->set(u"choisi", place - 1, nameIndex ? driver : QStringLiteral("–"));
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
        name->widget()->setEnabled(name->text().contains(typed, Qt::CaseInsensitive));
    }
}

// The first name that fits; with every place answered, the end of this stage.
void Assistant::enter()
{
    const QString typed = m_search->text().trimmed();
    if (m_counter->text() == finished)
        return validate();
    if (typed.isEmpty())
        return;
    const auto fits = [&](auto matches) {
        for (int i = 0; i < driverSlots; ++i) {
            const Control *name = control(nameControl(), i);
            if (!name->text().isEmpty() && name->inSight() && matches(name->text())) {
                choose(i);
                return true;
            }
        }
        return false;
    };
    if (fits([&](const QString &name) { return name.startsWith(typed, Qt::CaseInsensitive); }) ||
        fits([&](const QString &name) { return name.contains(u' ' + typed, Qt::CaseInsensitive); }) ||
        fits([&](const QString &name) { return name.contains(typed, Qt::CaseInsensitive); }))
        return;
    if (QStringLiteral("Aucun").startsWith(typed, Qt::CaseInsensitive))
        choose(std::nullopt);
}

Form49::Form49(Context &theContext, const QString &name, const QString &title) :
    Assistant(theContext, name, title, QStringLiteral("Cliquez sur le nom du pilote classé sur la Grille N°  "),
              gridPlaces)
{
}

// The first of the grid has the pole too; with nobody there it stays as it was.
void Form49::taken(int place, const QString &number, const QString &driver)
{
    if (place == 1 && !number.isEmpty()) {
        m_main.Text39.set(number.toStdString());
        m_main.Text9.set(driver.toStdString());
    }
    if (const Screen *grid = context.screens.find(QStringLiteral("Form48")))
        grid->setText(QStringLiteral("Text99"), driver, place - 1);
}

void Form49::validate()
{
    if (const Screen *grid = context.screens.find(QStringLiteral("Form48")))
        grid->press(QStringLiteral("Command1"));
    close();
}

void Form49::skip()
{
    close();
}

void Form49::closing()
{
    context.screens.open(QStringLiteral("Form40"));
    context.screens.close(QStringLiteral("Form48"));
}

Form40::Form40(Context &theContext, const QString &name, const QString &title) :
    Assistant(theContext, name, title, QStringLiteral("Cliquez sur le nom du pilote qui est classé N° "),
              classifiedPlaces)
{
}

void Form40::taken(int place, const QString &number, const QString &driver)
{
    m_main.number(place).set(number.toStdString());
    if (!number.isEmpty())
        m_main.name(place).set(driver.toStdString());
}

void Form40::validate()
{
    if (const Screen *main = context.screens.find(QStringLiteral("Form1")))
        main->press(QStringLiteral("Command5"));
    close();
}

void Form40::skip()
{
    close();
}

void Form40::closing()
{
    if (auto *main = dynamic_cast<Form1 *>(context.screens.find(QStringLiteral("Form1"))))
        main->comeBack();
}

}
