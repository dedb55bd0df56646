#include "RegionOptions.h"

#include <cmath>

namespace {

constexpr int LargestStep = 1024;
constexpr int LargestSize = 65535;

}

QVariantMap RegionOptions::toMap() const
{
    return {{QLatin1String("fixAspect"), fixAspect},
            {QLatin1String("originalAspect"), originalAspect},
            {QLatin1String("aspect"), aspect},
            {QLatin1String("symmetricX"), symmetricX},
            {QLatin1String("symmetricY"), symmetricY},
            {QLatin1String("applyToAll"), applyToAll},
            {QLatin1String("positionStepX"), positionStep.x()},
            {QLatin1String("positionStepY"), positionStep.y()},
            {QLatin1String("sizeStepX"), sizeStep.width()},
            {QLatin1String("sizeStepY"), sizeStep.height()},
            {QLatin1String("minWidth"), minimum.width()},
            {QLatin1String("minHeight"), minimum.height()},
            {QLatin1String("maxWidth"), qMax(0, maximum.width())},
            {QLatin1String("maxHeight"), qMax(0, maximum.height())}};
}

bool RegionOptions::set(const QString &name, const QVariant &value)
{
    if (name == QLatin1String("fixAspect"))
        fixAspect = value.toBool();
    else if (name == QLatin1String("originalAspect"))
        originalAspect = value.toBool();
    else if (name == QLatin1String("symmetricX"))
        symmetricX = value.toBool();
    else if (name == QLatin1String("symmetricY"))
        symmetricY = value.toBool();
    else if (name == QLatin1String("applyToAll"))
        applyToAll = value.toBool();
    else {
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number))
            return false;
        const int step = int(qBound(1.0, number, double(LargestStep)));
        const int size = int(qBound(0.0, number, double(LargestSize)));
        if (name == QLatin1String("aspect"))
            aspect = qBound(0.01, number, 100.0);
        else if (name == QLatin1String("positionStepX"))
            positionStep.setX(step);
        else if (name == QLatin1String("positionStepY"))
            positionStep.setY(step);
        else if (name == QLatin1String("sizeStepX"))
            sizeStep.setWidth(step);
        else if (name == QLatin1String("sizeStepY"))
            sizeStep.setHeight(step);
        else if (name == QLatin1String("minWidth"))
            minimum.setWidth(qMax(1, size));
        else if (name == QLatin1String("minHeight"))
            minimum.setHeight(qMax(1, size));
        else if (name == QLatin1String("maxWidth"))
            maximum.setWidth(size > 0 ? size : -1);
        else if (name == QLatin1String("maxHeight"))
            maximum.setHeight(size > 0 ? size : -1);
        else
            return false;
    }
    return true;
}
