#include "bridge/data/DeviceRow.h"

#include "foundation/Json.h"

#include <QJsonObject>

namespace {

QString classIf(bool flag, QLatin1String name)
{
    return flag ? QString(name) : QLatin1String("");
}

}

QString deviceRowText(const DeviceRow &row)
{
    QJsonObject json;
    json.insert(QLatin1String("key"), QString::number(row.key));
    json.insert(QLatin1String("cameraname"), row.cameraName);
    json.insert(QLatin1String("devicename"), row.deviceName);
    json.insert(QLatin1String("ipaddress"), row.ipAddress);
    json.insert(QLatin1String("headno"), row.headNumber);
    json.insert(QLatin1String("selected"), classIf(row.selected, QLatin1String("ui-selected")));
    json.insert(QLatin1String("found"), classIf(row.found, QLatin1String("found")));
    json.insert(QLatin1String("mobile"), classIf(row.mobile, QLatin1String("mobile")));
    json.insert(QLatin1String("dummy"), classIf(row.dummy, QLatin1String("dummy")));
    json.insert(QLatin1String("shutdown"), classIf(row.canShutDown, QLatin1String("sup-shutdown")));
    json.insert(QLatin1String("sup-wifi"), classIf(row.wireless, QLatin1String("sup-wifi")));
    json.insert(QLatin1String("con-wifi"),
                classIf(row.wirelessConnected, QLatin1String("connected")));
    json.insert(QLatin1String("sup-linkspeed"),
                classIf(row.linkSpeed, QLatin1String("sup-linkspeed")));
    return Json::compactText(json);
}
