// Form28, the journal: numbered articles of a title and a free text. What is typed goes to a draft beside the article
// half a second later, so that a crash loses no more than that, and is asked about before another article comes.
#include "media/journal.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QSignalBlocker>

namespace circuidex::screens {

namespace {

constexpr int draftDelay = 500; // ms

class Form28 : public Screen {
public:
    Form28(Context &context, const QString &name, const QString &title);
    void print(Printing how) override; // the article's text

protected:
    void closing() override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void layOut();
    QBoxLayout *headRow();
    QBoxLayout *foot();
    void open();
    void show(const media::Article &article);
    bool leave();
    void offerDraft();
    void keepDraft();
    bool save();
    void empty();
    void step(const std::string &number);
    void printable();
    media::Article typed() const;
    bool changed() const { return typed() != m_saved; }
    std::string number() const { return m_page->text().toStdString(); }

    Edit *m_page = nullptr, *m_title = nullptr;
    FreeText *m_body = nullptr;
    TimerControl *m_draft = nullptr;
    Field m_said;
    std::string m_number; // of the article on show
    media::Article m_saved; // as it was shown: nothing was typed since then, as long as the boxes hold the same
};

Form28::Form28(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    m_draft = &timer(u"Timerbrouillon"_s, 0, TimerControl::Kind::once, [this] { keepDraft(); });
    layOut();
    m_page->setText(qt(media::articleLastOpen(context.store)));
    connect(m_page, &QLineEdit::textChanged, this, [this] { open(); });
    const auto typing = [this] {
        if (!m_draft->pending())
            m_draft->start(draftDelay);
    };
    connect(m_title, &QLineEdit::textChanged, this, typing);
    connect(m_body, &QPlainTextEdit::textChanged, this, typing);
    shortcut(
        u"Ctrl+S"_s, [this] { save(); }, u"Enregistrer cet article"_s);
    open();
    if (Screen *main = context.screens.find(u"Form1"_s)) {
        main->setWindowState(Qt::WindowNoState);
        main->putAway();
    }
    setSize(13500, 10500);
}

void Form28::layOut()
{
    auto *about = add(
        u"Label1"_s,
        new Label(
            u"Ceci est un journal, vous pouvez y enregistrer toutes les informations que vous trouvez sur internet. "
            "Si un article vous intéresse, vous n'avez qu'à faire un copier-coller de celui-ci dans la zone texte "
            "çi-dessous(raccourçis Windows: Copier: Ctrl+c - Coller: Ctrl+v) et enregistrer."_s));
    about->setObjectName(u"hint"_s);
    about->setWordWrap(true);
    m_title = add(u"Text2"_s, new Edit);
    m_title->setMaxLength(1 << 16);
    auto *titleRow = new QHBoxLayout;
    titleRow->addWidget(styled(u"Titre ou sujet de l'article:"_s, "caption"));
    titleRow->addWidget(m_title, 1);
    m_body = add(u"Text1"_s, new FreeText);
    m_body->setTabChangesFocus(true);
    m_body->setPlaceholderText(u"Pas encore d'article ici : écrivez ou collez-le, puis « Enregistrer »."_s);
    m_body->setMinimumSize(200, 60);
    auto *layout = page();
    layout->addWidget(about);
    layout->addLayout(headRow());
    layout->addLayout(titleRow);
    layout->addWidget(m_body, 1);
    layout->addLayout(foot());
}

QBoxLayout *Form28::headRow()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    m_page = add(u"page"_s, new Edit);
    m_page->setFixedWidth(64);
    m_page->setAlignment(Qt::AlignCenter);
    m_page->setToolTip(u"Le numéro de l'article"_s);
    const Numbers &numbers = context.store.numbers();
    auto *back = button(u"Command3"_s, u"◀"_s, [this, &numbers] { step(media::articleBefore(numbers, number())); });
    auto *on = button(u"Command4"_s, u"▶"_s, [this, &numbers] { step(media::articleBehind(numbers, number())); });
    back->setToolTip(u"Article précédent (Ctrl+Page préc.)"_s);
    on->setToolTip(u"Article suivant (Ctrl+Page suiv.)"_s);
    for (auto *arrow : {back, on})
        arrow->setFixedWidth(34);
    shortcut(
        Qt::CTRL | Qt::Key_PageUp, [back] { back->click(); }, u"Article précédent"_s);
    shortcut(
        Qt::CTRL | Qt::Key_PageDown, [on] { on->click(); }, u"Article suivant"_s);
    row->addWidget(styled(u"Page: "_s, "caption"));
    for (QWidget *each : {static_cast<QWidget *>(back), static_cast<QWidget *>(m_page), static_cast<QWidget *>(on)})
        row->addWidget(each);
    row->addWidget(button(u"Command2"_s, u"Ouvrir"_s, [this] { open(); }));
    row->addWidget(quietLine(m_said), 1);
    auto *list = button(u"Liste"_s, u"Liste des articles"_s, [this] { context.screens.open(u"Form29"_s); });
    row->addWidget(list);
    return row;
}

QBoxLayout *Form28::foot()
{
    auto *row = new QHBoxLayout;
    auto *printed = command(u"Label12"_s, u"Imprimer l'article"_s, [this] { print(Printing::atOnce); });
    printed->setToolTip(u"Imprimer le texte (Ctrl+P ; choix de l'imprimante, PDF : Maj+Ctrl+P)"_s);
    row->addWidget(printed);
    row->addSpacing(look::gap);
    row->addWidget(button(u"Command5"_s, u"Version imprimable de l'article"_s, [this] { printable(); }));
    row->addStretch(1);
    row->addWidget(button(u"Command6"_s, u"Supprimer"_s, [this] { empty(); }));
    auto *keep = button(u"Command1"_s, u"Enregistrer"_s, [this] { save(); });
    keep->makeMain();
    keep->setToolTip(u"Enregistrer cet article (Ctrl+S)"_s);
    row->addWidget(keep);
    return row;
}

void Form28::open()
{
    if (!leave()) {
        const QSignalBlocker stay(m_page);
        m_page->setText(qt(m_number));
        return;
    }
    m_number = number();
    m_said.set("");
    media::finishSaving(context.store, m_number);
    media::Article stored = media::article(context.store, m_number);
    if (stored.title.empty())
        stored.title = media::titlePrompt(m_number);
    show(stored);
    m_saved = typed();
    offerDraft();
}

void Form28::show(const media::Article &article)
{
    m_body->setPlainText(qt(article.body));
    m_title->setText(qt(article.title));
    m_title->setCursorPosition(0);
    m_draft->stop();
}

// Before another article, or the stored one anew, takes the place of what was typed. False when that can't be saved.
bool Form28::leave()
{
    keepDraft();
    if (changed() && context.dialogs.question("L'article N°" + m_number + " n'est pas enregistré.\n\nL'enregistrer ?"))
        return save();
    media::dropDraft(context.store, m_number);
    return true;
}

void Form28::offerDraft()
{
    const auto draft = media::draft(context.store, m_number);
    if (!draft || *draft == m_saved)
        return media::dropDraft(context.store, m_number);
    if (!context.dialogs.question("Un texte de l'article N°" + m_number +
                                  " n'avait pas été enregistré.\n\nLe reprendre ? Non l'efface."))
        return media::dropDraft(context.store, m_number);
    show(*draft);
    m_said.set("Texte repris, pas encore enregistré");
}

void Form28::keepDraft()
{
    m_draft->stop();
    if (!changed())
        media::dropDraft(context.store, m_number);
    else if (!media::keepDraft(context.store, m_number, typed()))
        m_said.set("Attention : ce texte n'est pas encore conservé");
}

bool Form28::save()
{
    m_draft->stop();
    if (!media::saveArticle(context.store, m_number, typed())) {
        m_said.set(media::namesArticle(m_number) ? "Attention : l'article n'a pas pu être enregistré"
                                                 : "Une page est un nombre entier : rien n'est enregistré");
        return false;
    }
    m_saved = typed();
    const std::string title = media::titleAsRead(m_saved.title);
    m_said.set(title == m_saved.title ? "Article N°" + m_number + " enregistré"
                                      : "Enregistré ; le titre s'arrête à la virgule ou au guillemet");
    return true;
}

void Form28::empty()
{
    show({});
    save();
}

void Form28::step(const std::string &to)
{
    if (to == number())
        open();
    else
        m_page->setText(qt(to)); // which opens it
}

void Form28::printable()
{
    const Screen *sheet = context.screens.open(u"Form65"_s);
    if (!sheet)
        return;
    sheet->setText(u"Label1"_s, m_body->toPlainText());
    sheet->setText(u"Label2"_s, m_title->text());
}

void Form28::print(Printing how)
{
    const Waiting waiting(*this);
    context.platform.printText(m_body->toPlainText().toStdString(), how);
}

media::Article Form28::typed() const
{
    return {m_title->text().toStdString(), m_body->toPlainText().toStdString()};
}

// What isn't saved stays in its draft, for the next opening.
void Form28::closing()
{
    keepDraft();
    media::keepLastOpen(context.store, number());
    context.screens.close(u"Form65"_s);
    context.screens.bringMainBack();
}

void Form28::resizeEvent(QResizeEvent *event)
{
    Screen::resizeEvent(event);
    const TwipRect window = place();
    const double wide = window.width - 250;
    control(u"Label1"_s)->setGeometry({120, 540, wide, 480});
    control(u"Text1"_s)->setGeometry({120, 1500, wide, window.height - 2000});
}

}

ScreenRows form28()
{
    return {screenRow<Form28>(u"Form28"_s, u"Journal"_s)};
}

}
