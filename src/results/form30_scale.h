#pragma once
// Form30, the editor of the season's point scale.
#include "results/main_screen.h"
#include "shell/screens.h"

namespace circuidex {

class Form30 : public Screen {
public:
    Form30(Context &context, const QString &name, const QString &title);

protected:
    // Closing by any road puts the eight boxes into use, stored or not.
    void closing() override;

private:
    Scale boxes() const;
    void store();

    MainScreen &m_main;
    Field m_an; // the season that was open when this screen was
    std::array<Edit *, classifiedPlaces> m_boxes{};
};

}
