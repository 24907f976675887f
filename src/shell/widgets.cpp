// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/widgets.h"

#include "platform/qt_pictures.h"
#include "shell/look.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QShortcut>
#include <QStyle>

#include <algorithm>

namespace circuidex {

namespace {

// A long text shows its beginning.
void setFromStart(QLineEdit &edit, const QString &text)
{
    edit.setText(text);
    edit.setCursorPosition(0);
}

void run(const std::function<void()> &handler)
{
    if (const auto copy = handler)
        copy();
}

// What a picture decoded for a room is kept under, so that a page turned back to is there at once.
QString keptAs(const QString &path, const QSize &room)
{
    const QFileInfo file(path);
    const QString about = u"%1 %2 %3 %4 "_s.arg(room.width()).arg(room.height()).arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch());
    return about + path;
}

// Outlines in a square of 100 by 100.
QPainterPath outlinePath(Outline outline)
{
    QPainterPath path;
    switch (outline) {
    case Outline::driver: // helmet and shoulders
        path.moveTo(30, 52);
        path.cubicTo(26, 14, 74, 14, 71, 50);
        path.lineTo(70, 58);
        path.lineTo(48, 58);
        path.cubicTo(42, 58, 36, 62, 32, 62);
        path.closeSubpath();
        path.moveTo(71, 40);
        path.lineTo(50, 40);
        path.cubicTo(44, 40, 44, 51, 50, 51);
        path.lineTo(71, 51);
        path.moveTo(14, 88);
        path.cubicTo(16, 72, 30, 68, 50, 68);
        path.cubicTo(70, 68, 84, 72, 86, 88);
        break;
    case Outline::car: // from the side, nose to the right
        path.addEllipse(QPointF(22, 60), 11, 11);
        path.addEllipse(QPointF(76, 60), 11, 11);
        path.moveTo(33, 60);
        path.lineTo(65, 60);
        path.moveTo(6, 38);
        path.lineTo(6, 50);
        path.lineTo(14, 50);
        path.moveTo(20, 49);
        path.cubicTo(30, 36, 40, 36, 46, 44);
        path.lineTo(58, 46);
        path.lineTo(96, 56);
        path.lineTo(96, 64);
        path.lineTo(87, 64);
        break;
    case Outline::circuit:
        path.moveTo(18, 70);
        path.cubicTo(6, 50, 26, 44, 34, 34);
        path.cubicTo(44, 20, 58, 24, 54, 36);
        path.cubicTo(50, 46, 62, 48, 70, 40);
        path.cubicTo(84, 26, 98, 44, 86, 58);
        path.cubicTo(74, 72, 60, 60, 50, 68);
        path.cubicTo(42, 76, 26, 82, 18, 70);
        path.moveTo(60, 58);
        path.lineTo(64, 70);
        break;
    case Outline::race: // flag
        path.moveTo(28, 22);
        path.lineTo(28, 84);
        path.addRect(28, 24, 48, 32);
        path.moveTo(28, 40);
        path.lineTo(76, 40);
        path.moveTo(44, 24);
        path.lineTo(44, 56);
        path.moveTo(60, 24);
        path.lineTo(60, 56);
        break;
    case Outline::none: break;
    }
    return path;
}

void drawBlank(QPainter &painter, const QRectF &frame, Outline outline)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::shown(look::line), 1));
    painter.setBrush(look::shown(look::ground));
    painter.drawRoundedRect(frame.adjusted(.5, .5, -.5, -.5), 4, 4);
    // A car fills a third of its square's height only.
    const double high = (frame.height() - 12) * (outline == Outline::car ? 2 : 1);
    const double side = std::min({frame.width() - 12, high, 150.0});
    painter.translate(frame.center() - QPointF(side / 2, side / 2));
    painter.scale(side / 100, side / 100);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(
        QPen(look::shown(look::line), 260 / std::max(side, 60.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(outlinePath(outline));
}

int keyNamed(const QString &name)
{
    static const std::pair<const char16_t *, int> keys[] = {
        {u"Enter", Qt::Key_Return},   {u"Return", Qt::Key_Return}, {u"Escape", Qt::Key_Escape}, {u"Tab", Qt::Key_Tab},
        {u"Space", Qt::Key_Space},    {u"Left", Qt::Key_Left},     {u"Right", Qt::Key_Right},   {u"Up", Qt::Key_Up},
        {u"Down", Qt::Key_Down},      {u"PageUp", Qt::Key_PageUp}, {u"PageDown", Qt::Key_PageDown},
        {u"Home", Qt::Key_Home},      {u"End", Qt::Key_End},       {u"Delete", Qt::Key_Delete},   {u"Insert", Qt::Key_Insert},
        {u"Backspace", Qt::Key_Backspace}, {u"F1", Qt::Key_F1}};
    for (const auto &[text, key] : keys)
        if (name == QStringView(text))
            return key;
    return name.size() == 1 ? name.at(0).toUpper().unicode() : 0;
}

QShortcut *shortcutOf(const QWidget &widget, QKeyCombination pressed)
{
    const QKeySequence keys(QKeyCombination(pressed.keyboardModifiers() & ~Qt::KeypadModifier, pressed.key()));
    for (QShortcut *each : widget.window()->findChildren<QShortcut *>())
        if (each->key() == keys && each->isEnabled())
            return each;
    return nullptr;
}

// A field would take some keys for itself, as Ctrl+E for the end of its line. Where they mean something to the whole
// window, they mean it in its fields too.
bool leftToWindow(const QWidget &field, QEvent &event)
{
    if (event.type() != QEvent::ShortcutOverride ||
        !shortcutOf(field, static_cast<const QKeyEvent &>(event).keyCombination()))
        return false;
    event.ignore();
    return true;
}

// Makes a label plain when it is polished: for a tool tip that is before it gets its text, for those of Qt's own boxes
// before they are laid out, which is when a picture would be looked for.
class PlainText : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Polish)
            if (auto *label = qobject_cast<QLabel *>(watched))
                label->setTextFormat(Qt::PlainText);
        return false;
    }
};

}

void showTextPlainly(QApplication &application)
{
    application.installEventFilter(new PlainText(&application));
}

Label::Label(const QString &text, QWidget *parent) : Clickable(parent)
{
    setTextFormat(Qt::PlainText);
    setText(text);
}

void Label::makeCommand()
{
    setProperty("command", true);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); // its line stays under the words
}

void Label::enterEvent(QEnterEvent *event)
{
    QLabel::enterEvent(event);
    run(onHover);
}

void Label::leaveEvent(QEvent *event)
{
    QLabel::leaveEvent(event);
    run(onLeave);
}

Edit::Edit(QWidget *parent) : QLineEdit(parent) {}

bool Edit::event(QEvent *event)
{
    return leftToWindow(*this, *event) || QLineEdit::event(event);
}

void Edit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Backspace && text().isEmpty() && onBackspaceInEmpty)
        run(onBackspaceInEmpty);
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
             event->modifiers().testFlag(Qt::ShiftModifier) && (onDoubleClick || onClick))
        run(onDoubleClick ? onDoubleClick : onClick);
    else
        QLineEdit::keyPressEvent(event);
}

void Edit::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        run(onClick);
}

void Edit::mouseDoubleClickEvent(QMouseEvent *event)
{
    QLineEdit::mouseDoubleClickEvent(event);
    run(onDoubleClick);
}

Remark::Remark(QWidget *parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { run(onEdited); });
}

bool Remark::event(QEvent *event)
{
    return leftToWindow(*this, *event) || QPlainTextEdit::event(event);
}

void Remark::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        insertPlainText(u" "_s);
    else
        QPlainTextEdit::keyPressEvent(event);
}

void Remark::insertFromMimeData(const QMimeData *source)
{
    insertPlainText(source->text().simplified());
}

FreeText::FreeText(QWidget *parent) : QPlainTextEdit(parent) {}

bool FreeText::event(QEvent *event)
{
    return leftToWindow(*this, *event) || QPlainTextEdit::event(event);
}

ReadOnlyText::ReadOnlyText(QWidget *parent) : FreeText(parent)
{
    setReadOnly(true);
    setTabChangesFocus(true);
}

Button::Button(const QString &caption, QWidget *parent) : QPushButton(caption, parent)
{
    setAutoDefault(false);
}

void Button::makeMain()
{
    setProperty("main", true);
}

void Button::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

void setMark(QWidget &widget, const char *property, bool on)
{
    widget.setProperty(property, on);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

void sendKey(QWidget &widget, const QString &name)
{
    const auto key = static_cast<Qt::Key>(keyNamed(name.size() == 1 ? name : name.section(u'+', -1)));
    if (key == 0)
        return;
    Qt::KeyboardModifiers held = Qt::NoModifier;
    held.setFlag(Qt::ControlModifier, name.startsWith(QLatin1String("Ctrl+")));
    held.setFlag(Qt::AltModifier, name.startsWith(QLatin1String("Alt+")));
    held.setFlag(Qt::ShiftModifier, name.contains(QLatin1String("Shift+")));
    held.setFlag(Qt::AltModifier, name.startsWith(QLatin1String("Alt+")));
    const QKeyCombination pressed(held, key);
    if (QShortcut *meant = shortcutOf(widget, pressed)) {
        emit meant->activated();
        return;
    }
    const QString typed = name.size() == 1 ? name : QString();
    QKeyEvent down(QEvent::KeyPress, key, pressed.keyboardModifiers(), typed);
    QCoreApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, pressed.keyboardModifiers(), typed);
    QCoreApplication::sendEvent(&widget, &up);
}

Picture::Picture(QWidget *parent) : Clickable(parent)
{
    setMinimumSize(48, 36);
    connect(&m_decoding, &QFutureWatcherBase::finished, this, [this] {
        if (m_decoding.isCanceled())
            return;
        take(m_decoding.result());
        update();
    });
}

void Picture::setPath(const QString &path)
{
    if (path != m_path)
        m_scaled = {};
    m_path = path;
    m_scaledFor = {};
    update();
}

void Picture::setEnlarged(bool on)
{
    m_enlarged = on;
    update();
}

void Picture::load()
{
    m_decoding.cancel();
    if (QPixmap kept; QPixmapCache::find(keptAs(m_path, m_scaledFor), &kept))
        m_scaled = kept;
    else if (isQuickPicture(m_path))
        take(scaledPicture(m_path, m_scaledFor));
    else
        m_decoding.setFuture(startPicture(m_path, m_scaledFor));
}

void Picture::take(const QImage &image)
{
    m_scaled = QPixmap::fromImage(image);
    m_scaled.setDevicePixelRatio(devicePixelRatioF());
    if (!image.isNull())
        QPixmapCache::insert(keptAs(m_path, m_scaledFor), m_scaled);
}

void Picture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QSize room = size() * devicePixelRatioF();
    if (m_scaledFor != room) {
        m_scaledFor = room;
        load();
    }
    if (m_scaled.isNull()) {
        drawBlank(painter, rect(), m_outline);
        return;
    }
    QSize shown = (QSizeF(m_scaled.size()) / devicePixelRatioF()).toSize();
    if (m_enlarged || shown.width() > width() || shown.height() > height()) // also until it is decoded for a new size
        shown.scale(size(), Qt::KeepAspectRatio);
    const QRect place({(width() - shown.width()) / 2, (height() - shown.height()) / 2}, shown);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, m_scaled);
}

QString WidgetControl::text() const
{
    const auto *button = qobject_cast<QAbstractButton *>(m_widget);
    if (button && button->isCheckable()) // a tick or an option
        return button->isChecked() ? u"vrai"_s : u"faux"_s;
    if (button)
        return button->text().replace(QLatin1String("&&"), QLatin1String("&"));
    if (const auto *label = qobject_cast<QLabel *>(m_widget))
        return label->text();
    if (const auto *edit = qobject_cast<QLineEdit *>(m_widget))
        return edit->text();
    if (const auto *remark = qobject_cast<QPlainTextEdit *>(m_widget))
        return remark->toPlainText();
    if (const auto *picture = dynamic_cast<Picture *>(m_widget))
        return picture->path();
    return {};
}

void WidgetControl::setText(const QString &text)
{
    auto *button = qobject_cast<QAbstractButton *>(m_widget);
    if (button && button->isCheckable())
        button->setChecked(text == u"vrai");
    else if (button)
        button->setText(QString(text).replace(u'&', QLatin1String("&&")));
    else if (auto *label = qobject_cast<QLabel *>(m_widget))
        label->setText(text);
    else if (auto *edit = qobject_cast<QLineEdit *>(m_widget))
        setFromStart(*edit, text);
    else if (auto *lines = dynamic_cast<FreeText *>(m_widget))
        lines->setPlainText(text);
    else if (auto *remark = qobject_cast<QPlainTextEdit *>(m_widget))
        remark->setPlainText(QString(text).replace(u'\n', u' ').remove(u'\r'));
    else if (auto *picture = dynamic_cast<Picture *>(m_widget))
        picture->setPath(text);
}

QString WidgetControl::tip() const
{
    return m_widget->toolTip();
}

TwipRect WidgetControl::geometry() const
{
    const TwipRect fixed = Control::geometry();
    if (fixed.width > 0 || fixed.height > 0 || fixed.top != 0 || fixed.left != 0)
        return fixed;
    const QPoint corner = m_widget->mapTo(m_widget->window(), QPoint(0, 0));
    return {corner.x() * twipsPerPixel, corner.y() * twipsPerPixel, m_widget->width() * twipsPerPixel,
            m_widget->height() * twipsPerPixel};
}

bool WidgetControl::enabled() const
{
    return m_widget->isEnabled();
}

void WidgetControl::key(const QString &name)
{
    if (inSight())
        sendKey(*m_widget, name);
}

void WidgetControl::coloursChanged()
{
    QString style;
    if (back())
        style += u"background-color:%1;"_s.arg(back()->name());
    if (fore())
        style += u"color:%1;"_s.arg(fore()->name());
    // Bound to the widget's own class, so that its tooltip keeps the common colours.
    const QString widgetClass = QString::fromLatin1(m_widget->metaObject()->className());
    look::dress(*m_widget, style.isEmpty() ? style : widgetClass + u'{' + style + u'}');
}

void WidgetControl::sightChanged()
{
    QSizePolicy policy = m_widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // nothing jumps when a control leaves
    m_widget->setSizePolicy(policy);
    m_widget->setVisible(inSight());
}

void WidgetControl::doPress()
{
    if (auto *button = qobject_cast<QAbstractButton *>(m_widget))
        button->click();
    else
        Control::doPress();
}

void WidgetControl::doDoubleClick()
{
    Control::doDoubleClick();
}

}
