// SPDX-License-Identifier: GPL-3.0-or-later
// Raccourcis, the list of all keys: those of every window, of the window that it was opened from, and of the main
// screen. It shows what the screens themselves have registered, and so is never out of date.
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QHeaderView>

namespace circuidex::screens {

namespace {

constexpr int keyRows = 96, keysWidth = 200; // rows, pixels

// What the boxes, buttons, tables and menus answer by themselves.
const Screen::Key keysOfWidgets[] = {
    {u"Tab, Maj+Tab"_s, u"Champ, bouton, image ou tableau suivant, précédent"_s},
    {u"Entrée, Espace"_s, u"Appuyer sur le bouton, cliquer sur l'image ou la ligne, valider le champ"_s},
    {u"Maj+Entrée"_s, u"Double-cliquer : sur une image, une ligne, un champ à liste"_s},
    {u"Flèches"_s, u"Se déplacer dans un menu, un tableau, une galerie, un graphique"_s},
    {u"Échap"_s, u"Fermer la fenêtre, sauf la principale"_s},
    {u"Ctrl+Z, Maj+Ctrl+Z"_s, u"Annuler, rétablir la dernière action ; dans un champ, la dernière frappe"_s},
    {u"Ctrl+C, Maj+Ctrl+C"_s, u"Copier les cellules choisies d'un tableau, ou le tableau entier"_s},
    {u"Maj+Ctrl+S, Maj+Ctrl+H"_s, u"Enregistrer le tableau en CSV, en HTML"_s},
    {u"Maj+Ctrl+T, Maj+Ctrl+O"_s, u"Trier le tableau par la colonne, remettre l'ordre d'origine"_s},
    {u"Maj+F10"_s, u"Menu du tableau ou du graphique"_s},
};

class Raccourcis : public Screen {
public:
    Raccourcis(Context &context, const QString &name, const QString &title);

private:
    void fill();
    void heading(const QString &words);
    template <class Keys>
    void list(const Keys &keys);

    Control &m_from; // the screen that it was opened from
    Table *m_list;
    int m_next = 0;
};

Raccourcis::Raccourcis(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title), m_from(hidden(u"fenetre"_s)),
      m_list(table({{u"touches"_s, u"Touches"_s, keysWidth}, {u"effet"_s, u"Effet"_s}}, keyRows))
{
    m_from.onChange = [this](const QString &) { fill(); };
    m_list->setMinimumSize(620, m_list->rowsHigh(8));
    auto *layout = page();
    layout->addWidget(m_list, 1);
    layout->addLayout(footRow(u"Label1"_s));
    resize(720, 640);
    fill();
}

void Raccourcis::fill()
{
    m_next = 0;
    heading(u"Dans toutes les fenêtres"_s);
    list(keysOfAll());
    list(keysOfWidgets);
    QStringList screens{m_from.text(), u"Form1"_s};
    screens.removeDuplicates();
    for (const QString &name : screens)
        if (const Screen *screen = context.screens.find(name); screen && !screen->keys().empty()) {
            heading(name == u"Form1" ? u"Écran principal"_s : u"Fenêtre « %1 »"_s.arg(screen->title()));
            list(screen->keys());
        }
    for (int row = 0; row < keyRows; ++row)
        m_list->setRowHidden(row, row >= m_next);
}

void Raccourcis::heading(const QString &words)
{
    list(std::vector<Key>{{words, {}}});
    m_list->cell(u"touches", m_next - 1)->setBold(true);
}

template <class Keys>
void Raccourcis::list(const Keys &keys)
{
    for (const Key &key : keys) {
        if (m_next == keyRows)
            return;
        m_list->cell(u"touches", m_next)->setBold(false);
        m_list->set(u"touches", m_next, key.keys);
        m_list->set(u"effet", m_next++, key.does);
    }
}

}

ScreenRows raccourcis()
{
    return {screenRow<Raccourcis>(u"Raccourcis"_s, u"Raccourcis clavier"_s)};
}

}
