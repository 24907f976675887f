// Form30, the editor of the season's point scale.
#include "kinds/place_names.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

class Form30 : public Screen {
public:
    Form30(Context &context, const QString &name, const QString &title);

protected:
    // Closing by any road puts the eight boxes into use, stored or not.
    void closing() override;

private:
    results::Scale boxes() const;
    void store();

    results::MainRecord &m_main;
    Field m_an; // the season that was open when this screen was
    ByPlace<Edit *, classifiedPlaces> m_boxes;
};

Form30::Form30(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title), m_main(theContext.main), m_an(theContext.main.an.text())
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

void Form30::store()
{
    results::storeScale(WritableSeason(context.store, seasonStem(m_an.text())), boxes());
    close();
}

void Form30::closing()
{
    m_main.closeScaleEditor = {};
    m_main.setScale(boxes());
}

}

ScreenRows form30()
{
    return {screenRow<Form30>(u"Form30"_s, u"Barème d'attribution des points des 8 premiers"_s)};
}

}
