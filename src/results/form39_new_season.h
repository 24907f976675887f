#pragma once
// Form39, the passage to a new season: who is champion, and on to the next year.
#include "results/main_screen.h"
#include "shell/screens.h"

namespace circuidex {

class Form39 : public Screen {
public:
    Form39(Context &context, const QString &name, const QString &title);

private:
    QLayout *championRow();
    std::string championName() const;
    void pass();

    MainScreen &m_main;
    Button *m_ok = nullptr;
    Field m_champion; // Text40, his number
    Field m_name; // Text1
    Field m_archived; // cham, the name that the archive gets
};

}
