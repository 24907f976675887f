#pragma once
// The picture that the program opens with: the one that the user chose for it, or the program's own drawing.
#include "shell/widgets.h"

namespace circuidex {

class Store;

// The path that the archive keeps for it; empty without one.
QString openingPicturePath(const Store &store);

class OpeningPicture : public Picture {
public:
    using Picture::Picture;
    QSize sizeHint() const override { return {640, 400}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};

}
