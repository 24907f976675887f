// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A screen on which something is typed that one button stores: as long as it isn't stored, the button bears a mark (the
// control "saisie" says so). Left that way, the entry waits for "Reprendre la saisie" on the main screen's quiet line,
// which opens the screen and hands it back; opened in any other way, the screen shows what is stored.
#include "results/left_entry.h"
#include "shell/screen.h"
#include "shell/unsaved_mark.h"

namespace circuidex {

class EntryScreen : public Screen {
public:
    using Screen::Screen;

    // The season is that of the entry already.
    virtual void resume(const results::LeftEntry &left) = 0;

protected:
    virtual bool unsaved() const = 0;

    void savedBy(QWidget *button)
    {
        m_mark = new UnsavedMark(button);
        shape(u"saisie"_s).textNow = [this] { return unsaved() ? u"à enregistrer"_s : QString(); };
    }
    void showUnsaved() // after whatever may have changed it
    {
        if (m_mark)
            m_mark->setOn(unsaved());
    }

private:
    UnsavedMark *m_mark = nullptr;
};

}
