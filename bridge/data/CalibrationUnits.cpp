#include "bridge/data/CalibrationUnits.h"

#include <QMap>

namespace {

constexpr ushort MicroSign = 0x00b5;

QString microMeter()
{
    return QString(QChar(MicroSign)) + QLatin1Char('m');
}

QString microEntry()
{
    return QLatin1String("Micro (") + microMeter() + QLatin1Char(')');
}

QMap<QString, QString> makeShortNames()
{
    return {{QLatin1String("Inches (in)"), QLatin1String("inch")},
            {QLatin1String("Feet (ft)"), QLatin1String("feet")},
            {QLatin1String("Yard (yd)"), QLatin1String("yard")},
            {microEntry(), microMeter()},
            {QLatin1String("Milimeters (mm)"), QLatin1String("mm")},
            {QLatin1String("Meters (m)"), QLatin1String("m")},
            {QLatin1String("Pixel"), QLatin1String("pixel")}};
}

}

namespace CalibrationUnits {

QStringList entries(bool metric)
{
    if (metric)
        return {microEntry(), QLatin1String("Milimeters (mm)"), QLatin1String("Meters (m)")};
    return {QLatin1String("Inches (in)"), QLatin1String("Feet (ft)"), QLatin1String("Yard (yd)")};
}

QString shortName(const QString &entry)
{
    static QMap<QString, QString> shortNames = makeShortNames();
    return shortNames[entry];
}

}
