// Form65, an article of the journal as a sheet of paper, printed page by page: the title stands, the text moves below
// it.
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace circuidex::screens {

namespace {

// In twips: a page of the text, and how far the small buttons move it.
constexpr double pageHigh = 10215, smallStep = 500;
// The sheet in pixels at its full size; it is shown as large as there is room.
constexpr double sheetWide = 524, sheetHigh = 741, sheetSide = 36, textTop = 44;
constexpr int linesOnPage = 40; // so that a page ends between two lines
constexpr double lineHigh = pageHigh / twipsPerPixel / linesOnPage;
constexpr int textSize = 13, titleSize = 16;

// The text in lines as wide as the sheet's.
QStringList brokenLines(const QString &text, const QFont &font, double width)
{
    QStringList lines;
    for (const QString &paragraph : text.split(u'\n')) {
        QTextLayout layout(paragraph, font);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines << paragraph.mid(line.textStart(), line.textLength());
        }
        layout.endLayout();
    }
    return lines;
}

class Sheet : public QWidget {
public:
    Sheet()
    {
        setMinimumSize(240, 340);
        m_font.setPixelSize(textSize);
    }
    QSize sizeHint() const override { return (QSizeF(sheetWide, sheetHigh) * 0.91).toSize(); }
    void setBody(const QString &text) { m_lines = brokenLines(text, m_font, sheetWide - 2 * sheetSide); }
    qsizetype lines() const { return m_lines.size(); }

    std::function<QString()> title;
    std::function<double()> bodyTop; // pixels

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const double scale = std::min(width() / sheetWide, height() / sheetHigh);
        painter.translate((width() - scale * sheetWide) / 2, (height() - scale * sheetHigh) / 2);
        painter.scale(scale, scale);
        painter.setPen(look::line);
        painter.setBrush(look::card);
        painter.drawRect(QRectF(0.5, 0.5, sheetWide - 1, sheetHigh - 1));
        painter.setPen(look::ink);
        paintTitle(painter);
        paintBody(painter);
    }

private:
    void paintTitle(QPainter &painter) const
    {
        QFont bold = m_font;
        bold.setPixelSize(titleSize);
        bold.setBold(true);
        painter.setFont(bold);
        const QString words = QFontMetricsF(bold).elidedText(title().left(1000), Qt::ElideRight, sheetWide - 2 * sheetSide);
        painter.drawText(QRectF(sheetSide, 14, sheetWide - 2 * sheetSide, 24), Qt::AlignLeft | Qt::AlignVCenter, words);
    }
    void paintBody(QPainter &painter) const
    {
        painter.setClipRect(QRectF(0, textTop, sheetWide, pageHigh / twipsPerPixel));
        painter.setFont(m_font);
        const double top = bodyTop();
        const auto within = [this](double line) { return qsizetype(std::clamp(line, 0.0, double(m_lines.size()))); };
        const qsizetype end = within(std::ceil((textTop - top) / lineHigh) + linesOnPage + 1);
        for (qsizetype i = within(std::floor((textTop - top) / lineHigh)); i < end; ++i)
            painter.drawText(QRectF(sheetSide, top + double(i) * lineHigh, sheetWide - 2 * sheetSide, lineHigh),
                             Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, m_lines.at(i));
    }

    QFont m_font = font();
    QStringList m_lines;
};

class Form65 : public Screen {
public:
    Form65(Context &context, const QString &name, const QString &title);
    void print(Printing how) override { context.platform.print(*m_sheet, name().toStdString(), how); }

private:
    void take(const QString &text);
    void move(double twips);

    Sheet *m_sheet;
    Control &m_body, &m_title;
};

Form65::Form65(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title), m_sheet(new Sheet), m_body(hidden(u"Label1"_s)), m_title(hidden(u"Label2"_s))
{
    m_sheet->title = [this] { return m_title.text(); };
    m_sheet->bodyTop = [this] { return m_body.geometry().top / twipsPerPixel; };
    m_body.onChange = [this](const QString &text) { take(text); };
    m_title.onChange = [this](const QString &) { m_sheet->update(); };
    take({});
    auto *buttons = new QVBoxLayout;
    const auto mover = [&](const QString &control, const QString &caption, double twips, const QKeySequence &keys,
                           const QString &tip) {
        auto *made = button(control, caption, [this, twips] { move(twips); });
        made->setToolTip(tip);
        shortcut(
            keys, [made] { made->click(); }, caption);
        buttons->addWidget(made);
    };
    mover(u"Command3"_s, u"Page précédente"_s, pageHigh, Qt::Key_PageUp, u"Page préc."_s);
    mover(u"Command4"_s, u"Page suivante"_s, -pageHigh, Qt::Key_PageDown, u"Page suiv."_s);
    buttons->addSpacing(2 * look::gap);
    mover(u"Command2"_s, u"Monter"_s, smallStep, Qt::Key_Up, u"Flèche haut"_s);
    mover(u"Command1"_s, u"Descendre"_s, -smallStep, Qt::Key_Down, u"Flèche bas"_s);
    buttons->addStretch(1);
    buttons->addWidget(printCommand(u"Label3"_s), 0, Qt::AlignHCenter);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(2 * look::gap);
    columns->addWidget(m_sheet, 1);
    columns->addLayout(buttons);
    page()->addLayout(columns);
    setSize(9450, 10800);
}

void Form65::take(const QString &text)
{
    m_sheet->setBody(text);
    m_body.setGeometry({sheetSide * twipsPerPixel, textTop * twipsPerPixel, (sheetWide - 2 * sheetSide) * twipsPerPixel,
                        double(m_sheet->lines()) * lineHigh * twipsPerPixel});
    m_sheet->update();
}

void Form65::move(double twips)
{
    TwipRect rect = m_body.geometry();
    rect.top += twips;
    m_body.setGeometry(rect);
    m_sheet->update();
}

}

ScreenRows form65()
{
    return {screenRow<Form65>(u"Form65"_s, u"Version Imprimable"_s)};
}

}
