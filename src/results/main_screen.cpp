#include "results/main_screen.h"

namespace circuidex {

Scale MainScreen::scale() const
{
    Scale scale;
    for (std::size_t i = 0; i < scale.size(); ++i)
        scale[i] = ptspilot[i].text();
    return scale;
}

void MainScreen::setScale(const Scale &scale)
{
    for (std::size_t i = 0; i < scale.size(); ++i)
        ptspilot[i].set(scale[i]);
}

void MainScreen::refreshScale()
{
    if (closeScaleEditor)
        closeScaleEditor();
    else
        setScale(loadScale(season()));
}

}
