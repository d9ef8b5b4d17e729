#include "controls/mixed_color.h"

QColor Mixed(const QColor &over, const QColor &under, double share)
{
    const auto mix = [share](float one, float other) {
        return float(share * double(one) + (1 - share) * double(other));
    };
    return QColor::fromRgbF(mix(over.redF(), under.redF()), mix(over.greenF(), under.greenF()),
                            mix(over.blueF(), under.blueF()));
}
