#pragma once
// Form3, the profile of a driver: his whole record, his pictures and his team's, and beside it the sheet of his ratios,
// Form14, which moves with it. Emptying the fields and storing them puts a new driver into the slot.
#include "results/form2_drivers.h"

namespace circuidex {

class Form3 : public DriverScreenBase {
public:
    Form3(Context &context, const QString &name, const QString &title);

protected:
    void closing() override;
    void moveEvent(QMoveEvent *event) override;
    void showPictures() override;

private:
    QWidget *identityCard();
    QWidget *figuresCard();
    QWidget *picturesCard();
    QLayout *foot();
    void compareButton(QGridLayout &grid, int row, const char *name, const char *statistic);

    void step(const char *stop, const char *beside, const char *sheetButton);
    void open();
    void read();
    void emptyFields();
    void storeAll();
    void fillBlankPictures();
    void placeSheet();
    Screen *sheet() const;
    void showTeamLarge();
    void chooseTeamPicture();

    Field m_seasons; // Text10
    TimerControl *m_click = nullptr;
};

}
