// SPDX-License-Identifier: GPL-3.0-or-later
// Form25, the all-time list of Grands Prix, and the removal of names from it.
#include "kinds/picker.h"
#include "shell/screens.h"
#include "store/gp_list.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

const QString deletion = u"supp"_s;

class Form25 : public Picker {
public:
    Form25(Context &context, const QString &name, const QString &title);

protected:
    void pick(int index) override;

private:
    bool deleting() const;
    void startDeleting();
    void tidy();
};

Form25::Form25(Context &theContext, const QString &name, const QString &title)
    : Picker(theContext, name, title,
             {PickList::grandsPrix, u"Label6"_s, 0, gpListRows, 4, 780, {}, false})
{
    auto *deletionRow = new QHBoxLayout;
    deletionRow->addWidget(
        button(u"Command1"_s, u"Supprimer un GP"_s, [this] { startDeleting(); }));
    auto *hint = styled({}, "hint");
    deletionRow->addWidget(hint, 1);
    foot().addLayout(deletionRow);
    foot().addWidget(button(u"Command2"_s,
                            u"Réorganiser et supprimer les doublons : Cette opération peut prendre "
                                           "plusieures minutes si vous n'avez pas un PC puissant"_s,
                            [this] { tidy(); }),
                     0, Qt::AlignLeft);
    control(wordControl)->onChange = [this, hint](const QString &) {
        list().viewport()->setCursor(deleting() ? Qt::ForbiddenCursor : Qt::PointingHandCursor);
        hint->setText(deleting()
                          ? u"Cliquez sur le Grand Prix à supprimer de la liste, Échap pour renoncer"_s
                          : QString());
    };
    showNames(gpList(context.store));
}

bool Form25::deleting() const
{
    return text(wordControl) == deletion && text(tagControl).isEmpty();
}

// From now on a click takes the name out of the list, whatever the list was opened for.
void Form25::startDeleting()
{
    setText(tagControl, {});
    setText(wordControl, deletion);
}

void Form25::pick(int index)
{
    if (!deleting())
        return Picker::pick(index);
    deleteListedGp(context.store, index);
    close();
}

void Form25::tidy()
{
    {
        const Waiting waiting(*this);
        tidyGpList(context.store);
    }
    close();
}

}

ScreenRows form25()
{
    return {screenRow<Form25>(u"Form25"_s, u"Liste des Grands-Prix"_s)};
}

}
