// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The picture that the program opens with: the one that the user chose for it, or the program's own drawing.
#include "shell/widgets.h"

namespace circuidex {

struct Context;

// The file that the user chose for it; empty without one.
QString openingPicturePath(const Context &context);

class OpeningPicture : public Picture {
public:
    using Picture::Picture;
    QSize sizeHint() const override { return {640, 400}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};

}
