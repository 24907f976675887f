// SPDX-License-Identifier: GPL-3.0-or-later
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

const std::string programName = "Circuidex";

void present(QMessageBox &box, const std::string &title, const std::string &text)
{
    box.setWindowTitle(QString::fromStdString(title));
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

// Above the screens, which are kept on top.
std::optional<std::string> chosenIn(QFileDialog &dialog)
{
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst().toStdString();
}

}

void QtDialogs::message(const std::string &text)
{
    messageUnder(programName, text);
}

bool QtDialogs::question(const std::string &text)
{
    return questionUnder(programName, text);
}

void QtDialogs::messageUnder(const std::string &title, const std::string &text)
{
    QMessageBox box; // no parent: a timer may close the screen in front while the box is up
    present(box, title, text);
    box.setIcon(QMessageBox::Information);
    box.addButton(u"OK"_s, QMessageBox::AcceptRole);
    box.exec();
}

bool QtDialogs::questionUnder(const std::string &title, const std::string &text)
{
    QMessageBox box; // no parent: a timer may close the screen in front while the box is up
    present(box, title, text);
    box.setIcon(QMessageBox::Question);
    const QAbstractButton *yes = box.addButton(u"Oui"_s, QMessageBox::YesRole);
    box.addButton(u"Non"_s, QMessageBox::NoRole);
    box.exec();
    return box.clickedButton() == yes;
}

std::optional<std::string> QtDialogs::chooseFile(const std::string &title, const std::string &filter,
                                                 const std::string &preset)
{
    const QFileInfo first(QString::fromStdString(preset));
    QFileDialog dialog(nullptr, QString::fromStdString(title), m_folder, QString::fromStdString(filter));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (first.exists()) {
        dialog.setDirectory(first.path());
        dialog.selectFile(first.fileName());
    }
    auto chosen = chosenIn(dialog);
    if (chosen)
        m_folder = dialog.directory().path();
    return chosen;
}

std::optional<std::string> QtDialogs::chooseNewFile(const std::string &title, const std::string &filter)
{
    QFileDialog dialog(nullptr, QString::fromStdString(title), {}, QString::fromStdString(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(nameFor(QString::fromStdString(title)));
    const QString ending = dialog.nameFilters().value(0).section(QLatin1String("*."), 1).section(u')', 0, 0);
    dialog.setDefaultSuffix(ending);
    return chosenIn(dialog);
}

std::optional<std::string> QtDialogs::chooseFolder(const std::string &title)
{
    QFileDialog dialog(nullptr, QString::fromStdString(title));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return chosenIn(dialog);
}

}
