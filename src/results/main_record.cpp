#include "results/main_record.h"

namespace circuidex::results {

Scale MainRecord::scale() const
{
    Scale scale;
    for (int place = 1; place <= classifiedPlaces; ++place)
        scale[place] = ptspilot[place].text();
    return scale;
}

void MainRecord::setScale(const Scale &scale)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        ptspilot[place].set(scale[place]);
}

void MainRecord::refreshScale()
{
    if (closeScaleEditor)
        closeScaleEditor();
    else
        setScale(loadScale(season()));
}

}
