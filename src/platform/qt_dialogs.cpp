#include "platform/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>

namespace circuidex {

using namespace Qt::StringLiterals;

namespace {

void present(QMessageBox &box, const std::string &text)
{
    box.setWindowTitle(u"Circuidex"_s);
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
}

// The file name that a title proposes: what no file system minds.
QString nameFor(QString title)
{
    for (QChar &c : title)
        if (c < u' ' || QStringView(u"/\\:*?\"<>|").contains(c))
            c = u' ';
    title = title.simplified().left(100);
    while (title.startsWith(u'.'))
        title.remove(0, 1);
    return title;
}

}

void QtDialogs::message(const std::string &text)
{
    QMessageBox box; // no parent: a timer may close the screen in front while the box is up
    present(box, text);
    box.setIcon(QMessageBox::Information);
    box.addButton(u"OK"_s, QMessageBox::AcceptRole);
    box.exec();
}

bool QtDialogs::question(const std::string &text)
{
    QMessageBox box; // no parent: a timer may close the screen in front while the box is up
    present(box, text);
    box.setIcon(QMessageBox::Question);
    const QAbstractButton *yes = box.addButton(u"Oui"_s, QMessageBox::YesRole);
    box.addButton(u"Non"_s, QMessageBox::NoRole);
    box.exec();
    return box.clickedButton() == yes;
}

std::optional<std::string> QtDialogs::chooseFile(const std::string &title, const std::string &filter,
                                                 const std::string &preset)
{
    const QString first = QString::fromStdString(preset);
    const QString path = QFileDialog::getOpenFileName(nullptr, QString::fromStdString(title),
                                                      QFileInfo::exists(first) ? first : QString(),
                                                      QString::fromStdString(filter));
    return path.isEmpty() ? std::nullopt : std::optional(path.toStdString());
}

std::optional<std::string> QtDialogs::chooseNewFile(const std::string &title, const std::string &filter)
{
    QFileDialog dialog(nullptr, QString::fromStdString(title), {}, QString::fromStdString(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(nameFor(QString::fromStdString(title)));
    const QString ending = dialog.nameFilters().value(0).section(QLatin1String("*."), 1).section(u')', 0, 0);
    dialog.setDefaultSuffix(ending);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst().toStdString();
}

}
