// Form29, the titles of the journal's articles, 60 to a page. A click opens the article.
#include "kinds/empty_note.h"
#include "media/journal.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QHeaderView>

namespace circuidex::screens {

namespace {

constexpr int titleColumns = 3, rows = media::titlesOnPage / titleColumns;
constexpr int lastPage = 10'000'000; // beyond it no number names an article

class Form29 : public Screen {
public:
    Form29(Context &context, const QString &name, const QString &title);

private:
    int pageNumber() const
    {
        return context.store.numbers().whole(m_page->text().toStdString(), 1, lastPage).value_or(1);
    }
    void turnTo(int page);
    void fill();
    void openArticle(int row);

    Edit *m_page;
    Table *m_list;
};

Form29::Form29(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    std::vector<Column> list;
    for (int first = 0; first < media::titlesOnPage; first += rows) {
        list.push_back({u"Numero"_s, u"N°"_s, 52, Qt::AlignRight, {}, first});
        list.push_back({u"Label6"_s, u"Titre"_s, 0, Qt::AlignLeft, {}, first, true});
    }
    m_list = table(std::move(list), rows);
    m_list->setFixedHeight(m_list->rowsHigh(rows));
    m_list->onPress = [this](const QString &, int row) { openArticle(row); };
    add(emptyNote,
        noteOver(*m_list, u"Label6"_s,
                 u"Pas encore d'article sur cette page :\nle « Journal » les écrit et les enregistre."_s));
    m_page = add(u"page"_s, new Edit);
    m_page->setText(u"1"_s);
    m_page->setFixedWidth(52);
    m_page->setAlignment(Qt::AlignCenter);
    connect(m_page, &QLineEdit::textChanged, this, [this] { fill(); });
    auto *back = button(u"Command3"_s, u"◀"_s, [this] { turnTo(std::max(pageNumber() - 1, 1)); });
    auto *on = button(u"Command2"_s, u"▶"_s, [this] { turnTo(std::min(pageNumber() + 1, lastPage)); });
    back->setToolTip(u"Page précédente (Page préc.)"_s);
    on->setToolTip(u"Page suivante (Page suiv.)"_s);
    shortcut(
        Qt::Key_PageUp, [back] { back->click(); }, u"Page précédente"_s);
    shortcut(
        Qt::Key_PageDown, [on] { on->click(); }, u"Page suivante"_s);
    auto *foot = new QHBoxLayout;
    foot->addWidget(styled(u"Cliquez sur un titre pour ouvrir l'article"_s, "hint"));
    foot->addStretch(1);
    foot->addWidget(styled(u"Page: "_s, "caption"));
    for (QWidget *each : {static_cast<QWidget *>(back), static_cast<QWidget *>(m_page), static_cast<QWidget *>(on)})
        foot->addWidget(each);
    auto *layout = page();
    layout->addWidget(m_list);
    layout->addLayout(foot);
    setFixedWidth(960);
    fill();
}

void Form29::turnTo(int page)
{
    const QString text = QString::number(page);
    if (m_page->text() == text)
        fill(); // the first one again
    else
        m_page->setText(text);
}

void Form29::fill()
{
    const int shown = pageNumber();
    const auto titles = media::titlesOf(context.store, shown);
    for (int row = 0; row < media::titlesOnPage; ++row) {
        m_list->set(u"Numero", row, QString::number(media::titlesOnPage * (shown - 1) + row));
        m_list->set(u"Label6", row, qt(titles[static_cast<std::size_t>(row)]).left(500));
    }
}

void Form29::openArticle(int row)
{
    const QString number = QString::number(media::titlesOnPage * (pageNumber() - 1) + row);
    if (const Screen *journal = context.screens.open(u"Form28"_s)) {
        if (journal->text(u"page"_s) == number)
            journal->press(u"Command2"_s);
        else
            journal->setText(u"page"_s, number); // which opens it
    }
    close();
}

}

ScreenRows form29()
{
    return {screenRow<Form29>(u"Form29"_s, u"Liste des Articles"_s)};
}

}
