// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/screen.h"

#include "shell/accessibility.h"
#include "shell/chart_menu.h"
#include "shell/chart_view.h"
#include "shell/chrome.h"
#include "shell/copies.h"
#include "shell/focus_ring.h"
#include "shell/help_topics.h"
#include "shell/key_names.h"
#include "shell/look.h"
#include "shell/page.h"
#include "shell/screens.h"
#include "shell/tab_order.h"
#include "shell/table_menu.h"
#include "shell/title_bar.h"
#include "shell/window_place.h"
#include "shell/window_system.h"
#include "store/store.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace circuidex {

namespace {

constexpr int single = -1;
constexpr QPoint nowhere{1 << 20, 0}; // no window stands here
constexpr double farLeft = 150000, farTop = 50000; // of a window out of sight, beyond the largest desktops; twips

// What a widget does under the mouse is what its control does.
void wire(Control &control, QWidget *widget)
{
    if (auto *label = dynamic_cast<Label *>(widget)) {
        control.onPress = [label] {
            if (label->onClick)
                label->onClick();
        };
        control.onDoubleClick = [label] {
            if (label->onDoubleClick)
                label->onDoubleClick();
        };
        control.onHover = [label] {
            if (label->onHover)
                label->onHover();
        };
    } else if (auto *edit = dynamic_cast<Edit *>(widget)) {
        control.onPress = [edit] {
            if (edit->onClick)
                edit->onClick();
        };
        control.onDoubleClick = [edit] {
            if (edit->onDoubleClick)
                edit->onDoubleClick();
        };
    } else if (auto *picture = dynamic_cast<Picture *>(widget)) {
        control.onPress = [picture] {
            if (picture->onClick)
                picture->onClick();
        };
        control.onDoubleClick = [picture] {
            if (picture->onDoubleClick)
                picture->onDoubleClick();
        };
    }
}

// Where a window stands that would pass the edge of the display. To the left of it one is put away.
QPoint standing(const QRect &room, const QRect &window)
{
    const QPoint whole = wholeOn(room, window).topLeft();
    return window.x() < 0 ? QPoint(window.x(), whole.y()) : whole;
}

// As the menu key does.
void askForMenu(QWidget &widget)
{
    const QPoint middle = widget.rect().center();
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, middle, widget.mapToGlobal(middle));
    QCoreApplication::sendEvent(&widget, &asked);
}

// In the table that has the keyboard, otherwise in the first one in sight.
void findInTable(const Screen &screen)
{
    const Table *wanted = nullptr;
    for (const Table *table : screen.tables()) {
        const bool has = table->hasFocus() || table->isAncestorOf(screen.focusWidget());
        if (has || (!wanted && table->isVisibleTo(&screen)))
            wanted = table;
        if (has)
            break;
    }
    if (TableMenu *menu = wanted ? TableMenu::of(*wanted) : nullptr)
        menu->find();
}

// Where the card is on the desktop that has the focus, or the widget itself where it stands in none; empty for a window
// without focus.
QRect groupInUse(const QWidget &window)
{
    const QWidget *used = window.focusWidget();
    if (!used || !used->isVisible())
        return {};
    const QWidget *group =
        used->parentWidget() && used->parentWidget()->objectName() == u"card" ? used->parentWidget() : used;
    return {group->mapToGlobal(QPoint(0, 0)), group->size()};
}
}

Screen::Screen(Context &theContext, const QString &name, const QString &title, Chrome chrome)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), context(theContext), m_name(name), m_skin(theContext.skin)
{
    setAttribute(Qt::WA_DeleteOnClose);
    context.screens.opened(*this);
    if (chrome == Chrome::standard)
        setWindowFlag(Qt::WindowStaysOnTopHint);
    setObjectName(name);
    setWindowTitle(title);
    look::dress(*this, look::styleSheet(m_skin));
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(1, 0, 1, 1);
    if (chrome != Chrome::none) {
        m_bar = new TitleBar(m_skin, chrome == Chrome::mainWindow, this);
        m_bar->setToolTip(u"F1 : aide ; Maj+F1 : tous les raccourcis clavier"_s);
        layout->addWidget(m_bar);
        connect(m_bar, &TitleBar::closeClicked, this, &QWidget::close);
        connect(m_bar, &TitleBar::minimiseClicked, this, &QWidget::showMinimized);
    }
    m_body = new QWidget;
    m_body->setObjectName(u"body"_s);
    m_page = new Page(m_body, this);
    const int barHeight = m_bar ? m_bar->height() : 0;
    m_page->setRoom(room().size() - QSize(2, barHeight + 1));
    layout->addWidget(m_page, 1);
    m_ring = new FocusRing(m_body);
    if (chrome != Chrome::none)
        m_grips = std::make_unique<EdgeGrips>(*this);
    if (chrome == Chrome::standard)
        registerChrome();
    else if (m_bar)
        m_bar->setTitle(title);
    shortcut(
        u"Ctrl+P"_s, [this] { print(); }, u"Imprimer la fenêtre"_s);
    shortcut(
        u"Ctrl+Shift+P"_s, [this] { print(Printing::asked); },
        u"Imprimer en choisissant l'imprimante, les pages ou un fichier PDF"_s);
    shortcut(
        Qt::Key_F1, [this] { openHelp(context.screens, m_name); }, u"Aide sur la fenêtre"_s);
    shortcut(
        u"Shift+F1"_s, [this] { openKeys(context.screens, m_name); }, u"Cette page : tous les raccourcis"_s);
    shortcut(
        u"Ctrl+Q"_s, [this] { context.screens.quit(); }, u"Fermer Circuidex"_s);
    shortcut(
        u"Ctrl+F"_s, [this] { findInTable(*this); }, u"Rechercher dans le tableau"_s);
    m_keysOfAll = std::exchange(m_keys, {});
}

Screen::~Screen()
{
    if (!m_closed) // a closed one may outlive the list of screens
        context.screens.closed(*this);
}

void Screen::registerChrome()
{
    const auto part = [this](const char *name, std::function<TwipRect(const TwipRect &)> geometry) -> ShapeControl & {
        ShapeControl &made = shape(QString::fromLatin1(name));
        made.geometryNow = [this, geometry = std::move(geometry)] { return geometry(place()); };
        made.setBack(look::colour(m_skin.main));
        return made;
    };
    part("Image1apa", [](const TwipRect &) { return chrome::image1apa(); });
    part("Image2apa", [](const TwipRect &) { return chrome::image2apa(); });
    part("Image3apa", [](const TwipRect &w) { return chrome::image3apa(w.width); });
    part("Image4apa", [](const TwipRect &w) { return chrome::image4apa(w.width); }).onPress = [this] { close(); };
    part("Label1apa", [](const TwipRect &) { return chrome::label1apa(); });
    part("Label2apa", [](const TwipRect &) { return chrome::label2apa(); }).textNow = [this] { return m_bar->title(); };
    const auto edge = [this](const char *name, std::function<TwipLine(const TwipRect &)> line) {
        shape(QString::fromLatin1(name)).lineNow = [this, line = std::move(line)] { return line(place()); };
    };
    edge("Line1apa", [](const TwipRect &w) { return chrome::line1apa(w.height); });
    edge("Line2apa", [](const TwipRect &w) { return chrome::line2apa(w.width, w.height); });
    edge("Line3apa", [](const TwipRect &w) { return chrome::line3apa(w.width, w.height); });
    timer(u"Timeraparence"_s, 1, TimerControl::Kind::once, [this] { m_bar->setTitle(title()); });
}

void Screen::keep(const QString &name, std::optional<int> index, std::unique_ptr<Control> control)
{
    // A second control of one name would leave the first one's handlers pointing nowhere.
    if (!m_controls[name].emplace(index.value_or(single), std::move(control)).second)
        qFatal("%s: a second control %s", qPrintable(m_name), qPrintable(name));
}

void Screen::registerWidget(const QString &name, QWidget *widget, std::optional<int> index)
{
    auto control = std::make_unique<WidgetControl>(widget);
    wire(*control, widget);
    widget->setObjectName(widget->objectName().isEmpty() ? name : widget->objectName());
    keep(name, index, std::move(control));
}

Control *Screen::control(const QString &name, std::optional<int> index) const
{
    const auto array = m_controls.find(name);
    if (array != m_controls.end()) {
        const auto found = array->second.find(index.value_or(single));
        return found == array->second.end() ? nullptr : found->second.get();
    }
    for (const Table *table : m_tables)
        if (Cell *cell = index ? table->cell(name, *index) : table->cell(name))
            return cell;
    return nullptr;
}

QStringList Screen::controlNames() const
{
    QStringList names;
    for (const auto &[name, elements] : m_controls)
        for (const auto &[index, control] : elements)
            names << (index == single ? name : u"%1(%2)"_s.arg(name).arg(index));
    for (const Table *table : m_tables)
        names << table->names();
    return names;
}

std::vector<TimerControl *> Screen::timers() const
{
    std::vector<TimerControl *> found;
    for (const auto &[name, elements] : m_controls)
        for (const auto &[index, control] : elements)
            if (auto *timer = dynamic_cast<TimerControl *>(control.get()))
                found.push_back(timer);
    return found;
}

void Screen::press(const QString &name, std::optional<int> index) const
{
    if (Control *found = control(name, index))
        found->press();
}

void Screen::setText(const QString &name, const QString &text, std::optional<int> index) const
{
    if (Control *found = control(name, index))
        found->setText(text);
}

QString Screen::text(const QString &name, std::optional<int> index) const
{
    const Control *found = control(name, index);
    return found ? found->text() : QString();
}

TwipRect Screen::place() const
{
    const bool asSet = QWidget::size() == m_sizedTo;
    const TwipRect size{0, 0, asSet ? m_width : width() * twipsPerPixel, asSet ? m_height : height() * twipsPerPixel};
    if (m_outOfSight || pos() == m_placedAt) // where it was put, to the twip
        return {m_left, m_top, size.width, size.height};
    return {x() * twipsPerPixel, y() * twipsPerPixel, size.width, size.height};
}

void Screen::setPlace(double left, double top)
{
    m_left = left;
    m_top = top;
    m_outOfSight = left >= farLeft || top >= farTop;
    if (!m_outOfSight) {
        fitToDisplay();
        const QPoint wanted(static_cast<int>(left / twipsPerPixel), static_cast<int>(top / twipsPerPixel));
        const QPoint whole = standing(room(), {wanted, size()});
        if (whole.x() != wanted.x())
            m_left = whole.x() * twipsPerPixel;
        if (whole.y() != wanted.y())
            m_top = whole.y() * twipsPerPixel;
        if (onWayland() && windowType() == Qt::Popup)
            hide(); // a menu takes its place when it comes up
        move(whole);
        attach(*this, owner());
    }
    m_placedAt = pos();
    setVisible(!m_outOfSight);
    notePlace();
}

void Screen::setSize(double width, double height)
{
    const QSize free = room().size(), wanted(qRound(width / twipsPerPixel), qRound(height / twipsPerPixel));
    layout()->activate(); // the least size that the content needs
    m_width = width;
    m_height = height;
    m_sizedTo = wanted.boundedTo(free).boundedTo(maximumSize()).expandedTo(minimumSize());
    resize(m_sizedTo);
}

QRect Screen::room() const
{
    const Room free = context.platform.roomFor(*this);
    return {free.left, free.top, free.width, free.height};
}

// A main screen that is minimised or away would take its side screens along.
const QWidget *Screen::owner() const
{
    const Screen *main = context.screens.find(u"Form1"_s);
    return main != this && main && main->isVisible() && !main->isMinimized() ? main : nullptr;
}

void Screen::standAt(const QPoint &corner)
{
    move(corner);
    m_placedAt = corner;
    m_left = corner.x() * twipsPerPixel;
    m_top = corner.y() * twipsPerPixel;
}

// What differs from this later on is its user's wish.
void Screen::notePlace()
{
    m_cornerThen = pos();
    m_sizeThen = QWidget::size();
}

bool Screen::standWhereLeft()
{
    const bool ownSize = m_sizedTo.isValid(); // by the screen's own rule, or its own memory
    m_remembers = true;
    const auto kept = keptPlace(qt(context.platform.remembered("fenetres/" + m_name.toStdString())));
    if (!kept)
        return false;
    move(kept->at.topLeft()); // onto its display
    layout()->activate();
    if (canGrow(*this) && !ownSize)
        resize(kept->at.size().boundedTo(room().size()).expandedTo(minimumSize()));
    fitToDisplay();
    standAt(wholeOn(room(), {kept->at.topLeft(), QWidget::size()}).topLeft());
    m_maximisedThen = kept->maximised && canGrow(*this) && !ownSize;
    if (m_maximisedThen)
        setWindowState(Qt::WindowMaximized);
    notePlace();
    return true;
}

// What it was opened from is the window in front, or behind a menu, which is about to go, the main screen.
void Screen::standBeside()
{
    const auto here = [this](const Screen *other) {
        return other && other != this && other->isVisible() && other->seen() && !other->isMinimized();
    };
    const auto *from = qobject_cast<const Screen *>(QApplication::activeWindow());
    if (!here(from) || !from->m_bar)
        from = context.screens.find(u"Form1"_s);
    if (!context.platform.placesWindows())
        return;
    layout()->activate(); // the least size that the content needs
    if (!here(from)) {
        const QRect centred(room().center() - QRect(QPoint(0, 0), takes()).center(), takes());
        return standAt(wholeOn(room(), centred).topLeft());
    }
    const Room display = context.platform.roomFor(*from);
    const QRect free(display.left, display.top, display.width, display.height);
    QList<QPoint> taken;
    for (const QString &name : context.screens.openNames())
        if (const Screen *other = context.screens.find(name); here(other) && other->m_bar)
            taken << other->pos();
    standAt(besideOpener(takes(), from->frameGeometry(), groupInUse(*from), free, taken));
}

// Where the user moved it, and the size that he pulled it to; what the screen itself did is no wish of his.
void Screen::keepPlace() const
{
    const bool maximised = isMaximized();
    const QRect now = maximised ? normalGeometry() : QRect(pos(), QWidget::size());
    const bool asPlaced = now.topLeft() == m_cornerThen && now.size() == m_sizeThen;
    if (!m_remembers || m_outOfSight || now.isEmpty() || (asPlaced && maximised == m_maximisedThen))
        return;
    context.platform.remember("fenetres/" + m_name.toStdString(), asText({now, maximised}).toStdString());
}

// No larger than the display; what then has no room scrolls inside.
void Screen::fitToDisplay()
{
    const QSize free = room().size();
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    QSize wanted = size().boundedTo(free);
    if (wanted == size())
        return;
    const QSize around(2, 1 + (m_bar ? m_bar->height() : 0));
    wanted = (wanted + m_page->barsFor(wanted - around)).boundedTo(free);
    const bool fixed = minimumSize() == maximumSize();
    setMinimumSize(minimumSize().boundedTo(wanted));
    if (fixed)
        setFixedSize(wanted);
    else
        resize(wanted);
}

void Screen::readyForKeyboard()
{
    nameControls(*m_body, title());
    for (ChartView *chart : m_body->findChildren<ChartView *>())
        if (chart->contextMenuPolicy() != Qt::NoContextMenu && !ChartMenu::on(*chart))
            (new ChartMenu(*chart, context.dialogs))->decimal = [this] { return context.store.numbers().separator(); };
    if (QWidget *first = orderTabs(*m_body); first && !focusWidget())
        first->setFocus();
}

void Screen::present()
{
    if (m_outOfSight)
        return;
    const bool first = !std::exchange(m_tabsOrdered, true);
    if (first)
        readyForKeyboard();
    if (!isVisible()) {
        fitToDisplay();
        if (first && m_bar && m_placedAt == nowhere && !standWhereLeft())
            standBeside();
        attach(*this, owner());
    }
    show();
    if (first && m_remembers && !m_maximisedThen)
        notePlace(); // with the size that its content needs
    raise();
    activateWindow();
}

void Screen::setWaiting(bool on)
{
    m_waiting += on ? 1 : -1;
    if (m_waiting > 0)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void Screen::dress()
{
    m_skin = context.skin;
    look::dress(*this, look::styleSheet(m_skin));
    if (m_bar)
        m_bar->setSkin(m_skin);
    update();
}

// A page that scrolls is printed whole, without the bar over it.
void Screen::print(Printing how)
{
    const look::OnPaper paper(true);
    const QSize seen = m_page->viewport()->size();
    const bool scrolls = m_body->height() > seen.height() || m_body->width() > seen.width();
    context.platform.print(scrolls ? *m_body : static_cast<QWidget &>(*this), m_name.toStdString(), how);
}

QVBoxLayout *Screen::page()
{
    auto *layout = new QVBoxLayout(m_body);
    layout->setContentsMargins(look::margins);
    layout->setSpacing(look::gap);
    return layout;
}

QHBoxLayout *Screen::footRow(const QString &print)
{
    auto *row = new QHBoxLayout;
    row->addWidget(printCommand(print));
    row->addStretch(1);
    return row;
}

Button *Screen::button(const QString &name, const QString &caption, std::function<void()> handler,
                       std::optional<int> index)
{
    auto *made = add(name, new Button(QString(caption).replace(u'&', QLatin1String("&&")), m_body), index);
    connect(made, &QPushButton::clicked, this, [handler = std::move(handler)] {
        if (handler)
            handler();
    });
    return made;
}

QRadioButton *Screen::option(const QString &name, const QString &caption, std::function<void()> selected)
{
    auto *made = add(name, new QRadioButton(caption, m_body));
    connect(made, &QRadioButton::toggled, this, [selected = std::move(selected)](bool on) {
        if (on)
            selected();
    });
    return made;
}

Label *Screen::command(const QString &name, const QString &caption, std::function<void()> handler)
{
    auto *made = add(name, new Label(caption, m_body));
    made->makeCommand();
    made->onClick = std::move(handler);
    return made;
}

Label *Screen::printCommand(const QString &name)
{
    auto *made = command(name, u"Imprimer"_s, [this] { print(); });
    made->setToolTip(u"Imprimer cette fenêtre (Ctrl+P ; choix de l'imprimante, PDF : Maj+Ctrl+P)"_s);
    return made;
}

Control &Screen::hidden(const QString &name, const QString &text, std::function<void()> onPress,
                        std::optional<int> index)
{
    auto made = std::make_unique<Control>();
    made->setText(text);
    made->onPress = std::move(onPress);
    Control &control = *made;
    keep(name, index, std::move(made));
    return control;
}

Control &Screen::hidden(const QString &name, Field &field, std::optional<int> index)
{
    auto made = std::make_unique<FieldControl>(field);
    Control &control = *made;
    keep(name, index, std::move(made));
    return control;
}

ShapeControl &Screen::shape(const QString &name, std::optional<int> index)
{
    auto made = std::make_unique<ShapeControl>();
    ShapeControl &control = *made;
    keep(name, index, std::move(made));
    return control;
}

TimerControl &Screen::timer(const QString &name, int milliseconds, TimerControl::Kind kind, std::function<void()> fire)
{
    auto made = std::make_unique<TimerControl>(milliseconds, kind, std::move(fire));
    TimerControl &control = *made;
    keep(name, std::nullopt, std::move(made));
    return control;
}

Table *Screen::table(std::vector<Column> columns, int rows)
{
    auto *made = m_tables.emplace_back(new Table(std::move(columns), rows, m_body));
    const auto season = [this] { return seasonOnShow(context.screens); };
    const auto decimal = [this] { return context.store.numbers().separator(); };
    new TableMenu(*made, {*this, context.dialogs, season, decimal});
    return made;
}

Label *Screen::quietLine(Field &said)
{
    auto *made = add(u"avis"_s, new Label);
    made->setObjectName(u"hint"_s);
    made->setMinimumWidth(1); // a long one is cut off rather than widening its window
    bind(made, said);
    return made;
}

void Screen::shortcut(const QKeySequence &keys, std::function<void()> handler, const QString &does)
{
    connect(new QShortcut(keys, this), &QShortcut::activated, this, std::move(handler));
    tellKey(keysInWords(keys), does);
}

void Screen::tellKey(const QString &keys, const QString &does)
{
    m_keys.push_back({keys, does});
}

void Screen::leadsTo(QWidget &opener, const QString &screen) const
{
    if (context.screens.exists(screen))
        return;
    opener.setEnabled(false);
    opener.setToolTip(notYet);
}

void Screen::listen(Field &field, Field::Listener listener)
{
    field.listen(m_alive, std::move(listener));
}

void Screen::bind(Edit *edit, Field &field)
{
    edit->setText(qt(field.text()));
    connect(edit, &QLineEdit::textChanged, this, [&field](const QString &text) { field.set(text.toStdString()); });
    listen(field, [edit](const std::string &text) {
        if (edit->text().toStdString() != text)
            edit->setText(qt(text));
        if (!edit->hasFocus())
            edit->setCursorPosition(0);
    });
}

void Screen::bind(Remark *remark, Field &field)
{
    remark->setPlainText(qt(field.text()));
    remark->onEdited = [remark, &field] { field.set(remark->toPlainText().toStdString()); };
    listen(field, [remark](const std::string &text) {
        if (remark->toPlainText().toStdString() != text)
            remark->setPlainText(qt(text));
    });
}

void Screen::bind(QLabel *label, Field &field)
{
    label->setText(qt(field.text()));
    listen(field, [label](const std::string &text) { label->setText(qt(text)); });
}

void Screen::bind(Picture *picture, Field &field)
{
    picture->setPath(qt(field.text()));
    listen(field, [picture](const std::string &text) { picture->setPath(qt(text)); });
}

void Screen::closeEvent(QCloseEvent *event)
{
    if (!m_closed) {
        m_closed = true;
        for (TimerControl *timer : timers())
            timer->stop();
        keepPlace();
        context.screens.closed(*this);
        closing();
        m_alive.reset(); // a closed screen listens no more
    }
    event->accept();
}

void Screen::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && windowFlags().testFlag(Qt::WindowStaysOnTopHint))
        close();
    else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier && focusWidget())
        askForMenu(*focusWidget());
    else
        QWidget::keyPressEvent(event);
}

void Screen::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_grips)
        m_grips->place();
}

bool Screen::focusNextPrevChild(bool next)
{
    const bool moved = QWidget::focusNextPrevChild(next);
    m_ring->show(focusWidget());
    return moved;
}

void Screen::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(look::colour(m_skin.edge));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

QWidget *card(const QString &caption, QLayout *inside, QWidget *parent)
{
    auto *frame = new QFrame(parent);
    frame->setObjectName(u"card"_s);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(look::gap + 2, look::gap, look::gap + 2, look::gap + 2);
    layout->setSpacing(6);
    if (!caption.isEmpty())
        layout->addWidget(styled(caption, "caption"));
    layout->addLayout(inside, 1);
    return frame;
}

QLabel *styled(const QString &text, const char *style, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText); // before it has a text
    label->setText(text);
    label->setObjectName(QString::fromLatin1(style));
    return label;
}

}
