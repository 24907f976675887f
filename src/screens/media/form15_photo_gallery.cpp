// SPDX-License-Identifier: GPL-3.0-or-later
// Form15, the photo gallery: 24 pictures to a page, each filed by the user from any path. A click shows one large.
#include "kinds/gallery_page.h"
#include "results/media_of_grand_prix.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

constexpr int photoColumns = 6;
constexpr int previewDelay = 250; // ms, in which a second click makes it a double click

class Form15 : public GalleryPage {
public:
    Form15(Context &context, const QString &name, const QString &title);

protected:
    void showSlot(int slot, const std::string &path) override;
    void showSelected(int slot, bool selected) override;
    void slotClicked() override { m_preview->start(previewDelay); }
    std::optional<std::string> askForFile(int slot) override;
    void slotFiled() override { m_preview->stop(); }
    void closing() override { gallery.keepPage(); }

private:
    QLayout *slotGrid();
    QLayout *head();
    QLayout *pageCommands();
    Button *arrow(const QString &name, const QString &sign, const QString &tip, std::function<void()> handler);
    void preview();
    void changeSelected();

    TimerControl *m_preview;
    Field m_path; // the one last read or chosen
};

Form15::Form15(Context &theContext, const QString &name, const QString &title)
    : GalleryPage(theContext, name, title, media::photos, photoColumns),
      m_preview(&timer(u"Timer1"_s, 0, TimerControl::Kind::once, [this] { preview(); }))
{
    hidden(u"cheMin"_s, m_path);
    hidden(u"Image1"_s, {}, {}, 0).setGeometry({-1800, 0, 1800, 1350}); // the arrows of the viewer pass over it
    auto *layout = page();
    layout->addLayout(head());
    layout->addLayout(slotGrid(), 1);
    layout->addLayout(pageCommands());
    listen(gallery.iNdexx, [this](const std::string &) { showSelection(); });
    noteWhenFree(*body(),
                 u"Pas encore de photo sur cette page :\ndouble-cliquez sur une case, ou déposez-y une image."_s);
    gallery.open();
    showSelection();
    resize(990, 690);
}

QLayout *Form15::head()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(u"Cliquez sur une image pour la voir et double-cliquez pour spécifier le chemin:"_s, "hint"),
                   1);
    row->addWidget(styled(u"Photo:"_s, "caption"));
    row->addWidget(arrow(u"Command9"_s, u"◀"_s, u"Photo précédente (flèche gauche)"_s, [this] { gallery.stepBack(); }));
    auto *slot = slotNumber();
    slot->setFixedWidth(28);
    slot->setAlignment(Qt::AlignCenter);
    row->addWidget(slot);
    row->addWidget(
        arrow(u"Command10"_s, u"▶"_s, u"Photo suivante (flèche droite)"_s, [this] { gallery.stepForward(); }));
    return row;
}

QLayout *Form15::slotGrid()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(look::gap);
    for (int slot = 0; slot < media::photos.slotCount; ++slot) {
        auto *frame = new QFrame;
        frame->setObjectName(u"slot"_s);
        auto *inside = new QVBoxLayout(frame);
        inside->setContentsMargins(4, 4, 4, 4);
        inside->addWidget(addSlot(u"Image1"_s, new Picture));
        grid->addWidget(frame, slot / photoColumns, slot % photoColumns);
    }
    return grid;
}

QLayout *Form15::pageCommands()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(printCommand(u"Label2"_s));
    row->addSpacing(look::gap);
    row->addWidget(button(u"Command4"_s, u"Supprimer page"_s, [this] { gallery.emptyPage(); }));
    row->addWidget(button(u"Command3"_s, u"Supprimer selection"_s, [this] { gallery.emptySelected(); }));
    row->addWidget(button(u"Command7"_s, u"Modifier séléction"_s, [this] { changeSelected(); }));
    auto *open = button(u"Command8"_s, u"Ouvrir séléction"_s, [this] { preview(); });
    open->makeMain();
    row->addWidget(open);
    row->addStretch(1);
    row->addWidget(styled(u"Aller à la page:"_s, "caption"));
    auto *to = add(u"Text1"_s, new Edit);
    to->setFixedWidth(52);
    to->setAlignment(Qt::AlignCenter);
    const auto go = [this, to] { gallery.goToPage(to->text().toStdString()); };
    connect(to, &QLineEdit::returnPressed, this, go);
    row->addWidget(to);
    row->addWidget(arrow(u"Command5"_s, u"▶"_s, u"Aller à cette page (Entrée)"_s, go));
    row->addStretch(1);
    row->addWidget(styled(u"Page:"_s, "caption"));
    row->addWidget(arrow(u"Command1"_s, u"◀"_s, u"Page précédente (Page préc.)"_s, [this] { turnPage(-1); }));
    auto *number = pageNumber();
    number->setMinimumWidth(28);
    number->setMaximumWidth(120);
    number->setAlignment(Qt::AlignCenter);
    row->addWidget(number);
    row->addWidget(arrow(u"Command2"_s, u"▶"_s, u"Page suivante (Page suiv.)"_s, [this] { turnPage(1); }));
    return row;
}

Button *Form15::arrow(const QString &name, const QString &sign, const QString &tip, std::function<void()> handler)
{
    auto *made = button(name, sign, std::move(handler));
    made->setFixedWidth(34);
    made->setToolTip(tip);
    return made;
}

// A file that is gone, or no picture, leaves the slot as it was.
void Form15::showSlot(int slot, const std::string &path)
{
    m_path.set(path);
    const std::string file = context.main.surroundings.findPicture(path);
    if (!path.empty() && file.empty())
        return;
    setText(u"Image1"_s, qt(file), slot);
    slotWidget(slot)->setToolTip(qt(path));
}

void Form15::showSelected(int slot, bool selected)
{
    setMark(*slotWidget(slot)->parentWidget(), "chosen", selected);
}

std::optional<std::string> Form15::askForFile(int slot)
{
    m_preview->stop();
    return results::choosePictureFile(context.dialogs, "Photo " + std::to_string(slot));
}

void Form15::changeSelected()
{
    if (const auto slot = gallery.selected())
        fileByChoice(*slot);
}

void Form15::preview()
{
    m_preview->stop();
    const auto slot = gallery.selected();
    const Screen *viewer = slot ? context.screens.open(u"Form16"_s) : nullptr;
    if (!viewer)
        return;
    viewer->setText(u"Image1"_s, text(u"Image1"_s, *slot));
    if (viewer->text(u"Command3"_s) == u"Taille réele") // it goes on showing pictures at their own size
        viewer->press(u"Command3"_s);
}

}

ScreenRows form15()
{
    return {screenRow<Form15>(u"Form15"_s, u"Galerie Photo"_s)};
}

}
