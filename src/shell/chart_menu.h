// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What every chart offers by the right mouse button and the menu key: its picture for other programs, with the title
// that names season and subjects, and its figures where the screen tells them.
#include <QObject>

#include <functional>
#include <vector>

class QAction;

namespace circuidex {

class ChartView;
class Dialogs;

class ChartMenu : public QObject {
public:
    ChartMenu(ChartView &view, Dialogs &dialogs);

    static bool on(const ChartView &view);

    struct Entry {
        QString name; // of its control
        QAction *action;
    };
    const std::vector<Entry> &entries() const { return m_entries; }

    // The user's separator in numbers, for a file of figures.
    std::function<char()> decimal = [] { return ','; };

private:
    void add(const QString &name, const QString &caption, const QString &key, std::function<void()> run);
    void save(const QString &kind, const QByteArray &bytes);
    void saveFigures();

    ChartView &m_view;
    Dialogs &m_dialogs;
    std::vector<Entry> m_entries;
};

}
