#include "results/main_record.h"

namespace circuidex::results {

Scale MainRecord::scale() const
{
    Scale scale;
    for (std::size_t i = 0; i < scale.size(); ++i)
        scale[i] = ptspilot[i].text();
    return scale;
}

void MainRecord::setScale(const Scale &scale)
{
    for (std::size_t i = 0; i < scale.size(); ++i)
        ptspilot[i].set(scale[i]);
}

void MainRecord::refreshScale()
{
    if (closeScaleEditor)
        closeScaleEditor();
    else
        setScale(loadScale(season()));
}

}
