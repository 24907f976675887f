// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/public_data_screen.h"

#include "online/servers.h"
#include "shell/look.h"
#include "store/dialogs.h"
#include "store/store.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace circuidex {

namespace {

constexpr int barWidth = 280; // pixels
constexpr std::string_view fetchedFile = "donnees-publiques.zip"; // in the program folder

}

PublicDataScreen::PublicDataScreen(Context &theContext, const QString &name, const QString &title, Kept kept)
    : Screen(theContext, name, title), m_kept(std::move(kept)),
      m_turns(&timer(u"travail"_s, 0, TimerControl::Kind::repeating, [this] { turn(); }))
{
    connect(&m_download, &QtDownload::DownloadStatus, this, [this](const QString &status) { say(status); });
    connect(&m_download, &QtDownload::DownloadProgress, this, [this](quint8, qint32 received, qint32 total, qint32) {
        m_bar->setRange(0, total);
        m_bar->setValue(received);
    });
    connect(&m_download, &QtDownload::ended, this, [this](bool whole) {
        showBusy();
        if (whole)
            read((context.store.folder() / fetchedFile).string());
    });
    shortcut(
        u"Ctrl+O"_s, [this] { choose(); }, u"Choisir le fichier des données publiques"_s);
}

// What was fetched once is at hand without a network.
void PublicDataScreen::begin()
{
    showBusy();
    std::error_code error;
    const std::filesystem::path fetched = context.store.folder() / fetchedFile;
    if (*m_kept) {
        m_source->setText((*m_kept)->from);
        dataRead();
    } else if (std::filesystem::is_regular_file(fetched, error)) {
        read(fetched.string());
    } else {
        say(u"F1DB publie ses données sur github.com/f1db/f1db ; le fichier s'appelle f1db-json-splitted.zip."_s);
    }
}

QWidget *PublicDataScreen::sourceCard()
{
    m_choose = button(u"choisir"_s, u"Choisir un fichier…"_s, [this] { choose(); });
    m_choose->setToolTip(u"L'archive f1db-json-splitted.zip d'une publication de F1DB (Ctrl+O)"_s);
    m_fetch = button(u"telecharger"_s, u"Télécharger"_s, [this] { fetch(); });
    m_fetch->setToolTip(u"De l'adresse \"donnees\" du fichier serveurs.ini"_s);
    m_source = add(u"source"_s, new Label(u"Aucun fichier n'est ouvert"_s));
    m_source->setObjectName(u"figure"_s);
    m_source->setMinimumWidth(1);
    auto *row = new QHBoxLayout;
    row->setSpacing(look::gap);
    row->addWidget(m_choose);
    row->addWidget(m_fetch);
    row->addSpacing(look::gap);
    row->addWidget(m_source, 1);
    row->addWidget(add(u"credit"_s, styled(u"Données : F1DB, CC BY 4.0"_s, "hint")));
    return card(u"Données publiques"_s, row);
}

QWidget *PublicDataScreen::progressCard()
{
    m_said = add(u"avis"_s, new Label);
    m_said->setWordWrap(true);
    m_said->setMinimumHeight(2 * look::rowHeight); // so that nothing jumps with a longer one
    m_bar = new QProgressBar;
    m_bar->setFixedWidth(barWidth);
    ShapeControl &bar = shape(u"progression"_s);
    bar.textNow = [this] { return QString::number(m_bar->value()); };
    bar.tipNow = [this] { return QString::number(m_bar->maximum()); };
    m_cancel = button(u"annuler"_s, u"Annuler"_s, [this] { cancel(); });
    m_cancel->setToolTip(u"Tout reste comme avant (Échap)"_s);
    m_cancel->hide();
    for (QWidget *each : {static_cast<QWidget *>(m_bar), static_cast<QWidget *>(m_cancel)}) {
        QSizePolicy policy = each->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        each->setSizePolicy(policy);
    }
    auto *row = new QHBoxLayout;
    row->setSpacing(2 * look::gap);
    row->addWidget(m_said, 1);
    row->addWidget(m_bar);
    row->addWidget(m_cancel);
    return card({}, row);
}

void PublicDataScreen::choose()
{
    if (busy())
        return;
    const auto chosen = context.dialogs.chooseFile("Données publiques", "Archives (*.zip)");
    if (chosen && !chosen->empty())
        read(*chosen);
}

void PublicDataScreen::fetch()
{
    if (busy())
        return;
    if (context.store.readOnly())
        return say(u"Le dossier est ouvert en lecture seule : rien ne peut y être téléchargé."_s);
    const std::string address = online::readServers(context.store.folder()).donnees;
    if (address.empty())
        return say(u"Aucune adresse n'est donnée. Écrivez-la dans serveurs.ini, section [serveurs], par exemple "
                   "donnees=https://github.com/f1db/f1db/releases/latest/download/f1db-json-splitted.zip"_s);
    m_bar->setRange(0, 0);
    m_download.StartDownload(qt(address), qt((context.store.folder() / fetchedFile).string()), true);
    showBusy();
}

void PublicDataScreen::read(const std::string &path)
{
    m_file = QFileInfo(qt(path)).fileName();
    m_fetched = path == (context.store.folder() / fetchedFile).string();
    m_reading = std::make_unique<publicdata::Reading>(path);
    m_waiting = std::make_unique<Waiting>(*this);
    showProgress(u"Lecture de %1"_s.arg(m_file), 0, publicdata::Reading::tables());
    work([this] { return readOn(); });
}

// A refused archive leaves the one that was read before; a fetched one goes.
bool PublicDataScreen::readOn()
{
    const bool more = m_reading->step();
    showProgress(u"Lecture de %1"_s.arg(m_file), m_reading->tablesRead(), publicdata::Reading::tables());
    if (more)
        return true;
    const QString refusal = qt(m_reading->refusal());
    const bool fits = refusal.isEmpty();
    if (fits)
        *m_kept = Release{m_file, m_reading->take()};
    else if (m_fetched && !context.store.readOnly())
        online::removeDownload(context.store.folder() / fetchedFile);
    m_reading.reset();
    m_waiting.reset();
    say(fits ? QString() : m_file + u" : "_s + refusal);
    if (fits) {
        m_source->setText(m_file);
        dataRead();
    }
    return false;
}

void PublicDataScreen::work(std::function<bool()> step)
{
    m_step = std::move(step);
    m_turns->start(1);
    showBusy();
}

// The step may begin another piece of work.
void PublicDataScreen::turn()
{
    const auto step = std::exchange(m_step, {});
    if (step && step()) {
        m_step = step;
        return;
    }
    if (m_step)
        return;
    m_turns->stop();
    showBusy();
}

void PublicDataScreen::cancel()
{
    m_download.CancelDownload();
    const bool reading = m_reading != nullptr;
    m_reading.reset();
    m_waiting.reset();
    if (std::exchange(m_step, {}) && !reading)
        workCancelled();
    m_turns->stop();
    if (reading)
        say({});
    showBusy();
}

void PublicDataScreen::showProgress(const QString &says, int done, int all)
{
    m_said->setText(says);
    m_bar->setRange(0, all);
    m_bar->setValue(done);
}

void PublicDataScreen::say(const QString &says)
{
    m_said->setText(says);
}

void PublicDataScreen::keepFitting(Table &table, int column)
{
    table.setWordWrap(true);
    connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, [&table, column](int resized) {
        if (resized == column)
            fitRows(table, column);
    });
}

void PublicDataScreen::fitRows(Table &table, int column)
{
    constexpr int beside = 16, above = 8; // pixels that the text leaves free
    const int width = table.columnWidth(column) - beside;
    for (int row = 0; row < table.model().rowCount(); ++row) {
        if (table.isRowHidden(row))
            continue;
        const QString text = table.model().cell(row, column).text();
        const QRect takes = table.fontMetrics().boundingRect(QRect(0, 0, width, 10000), Qt::TextWordWrap, text);
        table.setRowHeight(row, std::max(look::rowHeight, takes.height() + above));
    }
}

// The keyboard stands on "Annuler" meanwhile, rather than on what comes next to a button that is switched off.
void PublicDataScreen::showBusy()
{
    const bool begins = busy() && m_cancel->isHidden(), ends = !busy() && !m_cancel->isHidden();
    if (begins)
        m_focus = focusWidget();
    m_bar->setVisible(busy());
    m_cancel->setVisible(busy());
    if (begins)
        m_cancel->setFocus();
    for (QWidget *each : {m_choose, m_fetch})
        each->setEnabled(!busy());
    busyChanged();
    if (ends)
        (m_focus && m_focus->isEnabled() && m_focus != m_cancel ? m_focus.data() : tables().front())->setFocus();
}

void PublicDataScreen::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && busy())
        cancel();
    else
        Screen::keyPressEvent(event);
}

}
