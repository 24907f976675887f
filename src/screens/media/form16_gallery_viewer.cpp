// SPDX-License-Identifier: GPL-3.0-or-later
// Form16, a picture of the photo gallery, large; its arrows walk through the gallery behind it. The profile of a driver
// and the podium show their pictures in it too.
#include "kinds/viewer.h"
#include "store/store.h"

namespace circuidex::screens {

namespace {

const QString atOwnSize = u"Taille réele"_s, stretched = u"Taille réele."_s; // the caption tells the state
constexpr int pageSlots = 24; // on a page of the gallery

class Form16 : public Viewer {
public:
    Form16(Context &theContext, const QString &name, const QString &title) : Viewer(theContext, name, title) { }

protected:
    void step(int by) override;
    void said(bool isStretched) override { setText(u"Command3"_s, isStretched ? stretched : atOwnSize); }
};

// Past the ends of its page the gallery turns over.
void Form16::step(int by)
{
    const Screen *gallery = context.screens.find(u"Form15"_s);
    const auto slot =
        gallery ? context.store.numbers().whole(gallery->text(u"iNdexx"_s).toStdString(), -99, 99) : std::nullopt;
    if (!slot)
        return;
    int to = *slot;
    if (by > 0 && to >= pageSlots) {
        gallery->press(u"Command2"_s);
        to = 0;
    } else if (by < 0 && to <= 0) {
        gallery->press(u"Command1"_s);
        to = pageSlots;
    }
    to += by;
    gallery->setText(u"iNdexx"_s, QString::number(to));
    setText(u"Image1"_s, gallery->text(u"Image1"_s, to));
    if (text(u"Command3"_s) == atOwnSize)
        showAsLarge();
}

}

ScreenRows form16()
{
    return {screenRow<Form16>(u"Form16"_s, u"Aperçu"_s)};
}

}
