// SPDX-License-Identifier: GPL-3.0-or-later
// Form30, the editor of the season's point scale.
#include "kinds/entry_screen.h"
#include "kinds/place_names.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

class Form30 : public EntryScreen {
public:
    Form30(Context &context, const QString &name, const QString &title);
    void resume(const results::LeftEntry &left) override;

protected:
    bool unsaved() const override { return m_entry.unsaved(entered().texts); }
    // Closing by any road puts the eight boxes into use, stored or not.
    void closing() override;

private:
    results::Scale boxes() const;
    results::LeftEntry entered() const;
    void store();

    results::MainRecord &m_main;
    Field m_an; // the season that was open when this screen was
    ByPlace<Edit *, classifiedPlaces> m_boxes;
    results::TypedEntry m_entry;
};

Form30::Form30(Context &theContext, const QString &name, const QString &title) :
    EntryScreen(theContext, name, title), m_main(theContext.main), m_an(theContext.main.an.text())
{
    hidden(u"an"_s, m_an);
    const results::Scale scale = results::loadScale(Season(context.store, seasonStem(m_an.text())));
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(6);
    for (int place = 1; place <= classifiedPlaces; ++place) {
        auto *box = add(u"Text%1"_s.arg(place), new Edit);
        box->setText(qt(scale[place]));
        box->setAlignment(Qt::AlignRight);
        box->setFixedWidth(70);
        connect(box, &QLineEdit::returnPressed, this, [this] { store(); });
        connect(box, &QLineEdit::textChanged, this, [this] { showUnsaved(); });
        m_boxes[place] = box;
        const int row = (place - 1) % 4, column = 2 * ((place - 1) / 4);
        grid->addWidget(styled(placeName(place), "place"), row, column);
        grid->addWidget(box, row, column + 1);
    }
    grid->setColumnStretch(4, 1);
    const auto note = [](const char *words, const char *style) {
        auto *label = styled(QString::fromUtf8(words), style);
        label->setWordWrap(true);
        return label;
    };
    auto *layout = page();
    layout->addWidget(card(u"Points des places, saison %1"_s.arg(qt(m_an.text())), grid));
    layout->addWidget(note("ATTENTION: Ne changez pas ces paramètres au cours d'une saison.", "caption"));
    layout->addWidget(note("Ce barème peut être changé d'une saison à l'autre mais pas en cours de saison: les calculs "
                           "de classement seraient faussés.",
                           "hint"));
    auto *validate = button(u"Command1"_s, u"Valider le nouveau barème"_s, [this] { store(); });
    validate->makeMain();
    savedBy(validate);
    m_entry.loaded(entered());
    layout->addWidget(validate);
    setFixedSize(sizeHint().expandedTo(QSize(380, 0)).width(), heightForWidth(380) > 0 ? heightForWidth(380) : 300);
    m_boxes[1]->setFocus();
    m_boxes[1]->selectAll();
    m_main.closeScaleEditor = [this] { close(); };
}

results::Scale Form30::boxes() const
{
    results::Scale scale;
    for (int place = 1; place <= classifiedPlaces; ++place)
        scale[place] = m_boxes[place]->text().toStdString();
    return scale;
}

results::LeftEntry Form30::entered() const
{
    const results::Scale scale = boxes();
    return {"Form30", m_an.text(), {}, {scale.begin(), scale.end()}};
}

void Form30::resume(const results::LeftEntry &left)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        m_boxes[place]->setText(qt(left.texts.at(static_cast<std::size_t>(place - 1))));
}

void Form30::store()
{
    results::storeScale(WritableSeason(context.store, seasonStem(m_an.text())), boxes());
    m_entry.stored(entered(), m_main.left);
    close();
}

void Form30::closing()
{
    m_main.closeScaleEditor = {};
    m_entry.leave(entered().texts, m_main.left);
    m_main.setScale(boxes());
}

}

ScreenRows form30()
{
    return {screenRow<Form30>(u"Form30"_s, u"Barème d'attribution des points des 8 premiers"_s)};
}

}
