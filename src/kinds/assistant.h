#pragma once
// The two assistants of a recording. Each asks for one driver a place, by a click on his name; a name taken leaves the
// list. Form49 fills the grid, Form40 behind it the result.
#include "results/main_record.h"
#include "shell/screens.h"

namespace circuidex {

class Assistant : public Screen {
public:
    // Asks for so many places with the question; the counter stands behind it.
    Assistant(Context &context, const QString &name, const QString &title, const QString &question, int places);

protected:
    // The driver of a place, from 1; an empty number and name for nobody.
    virtual void taken(int place, const QString &number, const QString &driver) = 0;
    virtual void validate() = 0; // "Valider"
    virtual void skip() = 0;     // "Passer"

    results::MainRecord &m_main;

private:
    void layOut(const QString &question);
    QWidget *names();
    QWidget *sofar();
    void choose(std::optional<int> nameIndex);
    void narrow(const QString &typed);
    void enter();

    int m_places;
    Label *m_counter = nullptr;
    Edit *m_search = nullptr;
    Table *m_sofar = nullptr;
};

}
