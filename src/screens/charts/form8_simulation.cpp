// SPDX-License-Identifier: GPL-3.0-or-later
#include "screens/charts/form8_simulation.h"

#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QWindow>

namespace circuidex::screens {

using charts::seriesCount;

namespace {

// The controls of the four rows, in the order of the lines: name, points, and the driver's number behind them.
const std::array<QString, seriesCount> nameLabels{u"Label35"_s, u"Label36"_s, u"Label37"_s, u"Label38"_s};
const std::array<QString, seriesCount> pointBoxes{u"Text7"_s, u"Text9"_s, u"Text11"_s, u"Text13"_s};
const std::array<QString, seriesCount> driverBoxes{u"Text6"_s, u"Text8"_s, u"Text10"_s, u"Text12"_s};

}

SimulatingChart::SimulatingChart(Context &theContext, const QString &name, const QString &title,
                                 const SubjectsChartRow &row)
    : SubjectsChart(theContext, name, title, row), m_running(results::runningSimulation(theContext.store))
{
    layOut(zone());
    takeDrivers();
    showState();
}

QWidget *SimulatingChart::zone()
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->addLayout(head(), 0, 0, 1, 3);
    for (int s = 0; s < seriesCount; ++s)
        grid->addLayout(score(s), 1 + s % 2, s / 2);
    grid->addWidget(button(u"Command4"_s, u"Générer la simulation"_s, [this] { simulate(); }), 1, 2);
    grid->addWidget(button(u"Command5"_s, u"Arrêter la simulation"_s, [this] { stop(); }), 2, 2);
    return card({}, grid);
}

QLayout *SimulatingChart::head()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(u"Simulations:"_s, "caption"));
    row->addSpacing(12);
    row->addWidget(styled(u"Etat:"_s, "hint"));
    m_state = add(u"Label39"_s, new Label);
    m_state->setObjectName(u"caption"_s);
    row->addWidget(m_state);
    auto *note = styled(u"Pendant une simulation, tous les autres écrans de classements et de statistiques la montrent ; "
                        "celui-ci ne reste plus devant."_s,
                        "hint");
    note->setWordWrap(true);
    note->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(note, 1);
    return row;
}

// "Si … marque … points au prochain GP"
QLayout *SimulatingChart::score(int series)
{
    const auto s = std::size_t(series);
    hidden(driverBoxes[s]);
    auto *name = add(nameLabels[s], new Label);
    name->setObjectName(u"figure"_s);
    name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    control(nameLabels[s])->setFore(colour(series));
    auto *points = add(pointBoxes[s], new Edit);
    points->setFixedWidth(40);
    points->setAlignment(Qt::AlignCenter);
    points->setToolTip(u"Un nombre de points du barème ; vide : aucun point"_s);
    onEnter(points, [this] { simulate(); });
    auto *row = new QHBoxLayout;
    row->setSpacing(5);
    row->addWidget(styled(u"Si "_s, "hint"));
    row->addWidget(name, 1);
    row->addWidget(styled(u"marque "_s, "hint"));
    row->addWidget(points);
    row->addWidget(styled(u"points au prochain GP"_s, "hint"));
    return row;
}

void SimulatingChart::takeDrivers()
{
    for (std::size_t s = 0; s < seriesCount; ++s)
        setText(driverBoxes[s], qt(m_chart.subjects[s].text()));
}

void SimulatingChart::showSubjects()
{
    SubjectsChart::showSubjects();
    for (int s = 0; s < seriesCount; ++s) {
        setText(nameLabels[std::size_t(s)], qt(m_chart.name(s)));
        static_cast<WidgetControl *>(control(nameLabels[std::size_t(s)]))->widget()->setToolTip(qt(m_chart.name(s)));
    }
}

void SimulatingChart::simulate()
{
    stayInFront(false);
    if (m_running)
        return;
    const Waiting waiting(*this);
    takeDrivers();
    std::array<results::SimulatedScore, seriesCount> scores;
    for (std::size_t s = 0; s < seriesCount; ++s)
        scores[s] = {text(driverBoxes[s]).toStdString(), text(pointBoxes[s]).toStdString()};
    m_running = results::startSimulation(context.main, scores);
    showState();
    stayInFront(!m_running);
    draw();
    if (const Screen *main = context.screens.find(u"Form1"_s); main && m_running && m_running->recorded)
        main->press(u"Label47"_s); // its podium
}

// The podium that is gone isn't left open.
void SimulatingChart::stop()
{
    const Waiting waiting(*this);
    if (m_running && results::stopSimulation(context.main, *m_running)) {
        m_running.reset();
        context.screens.close(u"Form12"_s);
        draw();
    }
    showState();
    stayInFront(true);
}

void SimulatingChart::showState()
{
    m_state->setText(m_running ? u"En cours de simulation"_s : u"Hors simulation"_s);
    m_state->setToolTip(m_running ? qt(m_running->gp + " " + m_running->season).trimmed() : QString());
}

// Of the window as it stands; its flag as a screen stays.
void SimulatingChart::stayInFront(bool on)
{
    if (QWindow *window = windowHandle())
        window->setFlag(Qt::WindowStaysOnTopHint, on);
}

// A simulated race isn't left among the real ones.
void SimulatingChart::closing()
{
    SubjectsChart::closing();
    if (const auto running = results::runningSimulation(context.store))
        results::stopSimulation(context.main, *running);
}

}
