#include "results/form30_scale.h"

#include "shell/look.h"
#include "shell/place_names.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex {

Form30::Form30(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title), m_main(theContext.main), m_an(theContext.main.an.text())
{
    hidden(QStringLiteral("an"), m_an);
    const Scale scale = loadScale(Season(context.store, m_an.text()));
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(6);
    for (int i = 0; i < classifiedPlaces; ++i) {
        auto *box = add(QStringLiteral("Text%1").arg(i + 1), new Edit);
        box->setText(qt(scale[static_cast<std::size_t>(i)]));
        box->setAlignment(Qt::AlignRight);
        box->setFixedWidth(70);
        connect(box, &QLineEdit::returnPressed, this, [this] { store(); });
        m_boxes[static_cast<std::size_t>(i)] = box;
        grid->addWidget(styled(placeName(i + 1), "place"), i % 4, 2 * (i / 4));
        grid->addWidget(box, i % 4, 2 * (i / 4) + 1);
    }
    grid->setColumnStretch(4, 1);
    const auto note = [](const char *words, const char *style) {
        auto *label = styled(QString::fromUtf8(words), style);
        label->setWordWrap(true);
        return label;
    };
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(look::gap);
    layout->addWidget(card(QStringLiteral("Points des places, saison %1").arg(qt(m_an.text())), grid));
    layout->addWidget(note("ATTENTION: Ne changez pas ces paramètres au cours d'une saison.", "caption"));
    layout->addWidget(note("Ce barème peut être changé d'une saison à l'autre mais pas en cours de saison: les calculs "
                           "de classement seraient faussés.",
                           "hint"));
    auto *validate = button(QStringLiteral("Command1"), QStringLiteral("Valider le nouveau barème"), [this] { store(); });
    validate->makeMain();
    layout->addWidget(validate);
    setFixedSize(sizeHint().expandedTo(QSize(380, 0)).width(), heightForWidth(380) > 0 ? heightForWidth(380) : 300);
    m_boxes[0]->setFocus();
    m_boxes[0]->selectAll();
    m_main.closeScaleEditor = [this] { close(); };
}

Scale Form30::boxes() const
{
    Scale scale;
    for (std::size_t i = 0; i < scale.size(); ++i)
        scale[i] = m_boxes[i]->text().toStdString();
    return scale;
}

void Form30::store()
{
    storeScale(Season(context.store, m_an.text()), boxes());
    close();
}

void Form30::closing()
{
    m_main.closeScaleEditor = {};
    m_main.setScale(boxes());
}

}
