// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The two assistants of a recording. Each asks for one driver a place, by a click on his name or by its first letters and
// Enter; a name taken can't be chosen twice. Backspace in the empty box takes the last answer back, Ctrl+Enter is
// "Valider". Form49 fills the grid, Form40 behind it the result.
#include "results/main_record.h"
#include "shell/screens.h"

namespace circuidex {

class Assistant : public Screen {
public:
    // Asks for so many places with the question; the counter stands behind it.
    Assistant(Context &context, const QString &name, const QString &title, const QString &question, int places);

protected:
    // The driver of a place, from 1; an empty number and name for nobody. What is returned puts back what stood before.
    virtual std::function<void()> taken(int place, const QString &number, const QString &driver) = 0;
    virtual void validate() = 0; // "Valider"
    virtual void skip() = 0;     // "Passer"

    results::MainRecord &m_main;

private:
    void layOut(const QString &question);
    QWidget *names();
    QWidget *sofar();
    void choose(std::optional<int> nameIndex);
    void setFree(int nameIndex, bool free);
    void takeBack();
    void showPlace(int place);
    QStringList freeNames() const; // by index; empty for a name that was taken
    bool meansNobody(const QString &typed) const;
    void narrow();
    void enter();
    void finish();

    struct Answer {
        int place;
        std::optional<int> nameIndex;
        std::function<void()> undo;
    };
    std::vector<Answer> m_answers; // in the order given
    int m_places;
    Label *m_counter = nullptr, *m_hint = nullptr;
    Edit *m_search = nullptr;
    Table *m_sofar = nullptr;
};

}
