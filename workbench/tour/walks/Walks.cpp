#include "workbench/tour/walks/Walks.h"

#include "workbench/tour/device/DeviceWalks.h"
#include "workbench/tour/record/RecordWalks.h"

const QVector<Walk> &Walks::all()
{
    static const QVector<Walk> walks = {
        {"lock", {2, 1, false, false}, lock},
        {"region", {3, 1, false, false}, region},
        {"recording", {3, 2, false, false}, recording},
        {"trouble", {3, 2, false, false}, trouble},
        {"pages", {3, 2, false, false}, pages},
        {"note", {3, 2, false, false}, note},
        {"support", {3, 2, false, false}, support},
        {"style", {3, 2, false, false}, style},
        {"region-dark", {3, 2, true, true}, regionInTheDark},
        {"empty", {3, 2, true, true}, empty},
        {"information", {3, 2, false, false}, information},
        {"information-dark", {3, 2, true, false}, information},
        {"editinfo", {3, 1, false, false}, editInfo},
        {"editinfo-dark", {3, 1, true, false}, editInfo},
        {"custominfo", {3, 2, false, false}, customInfo},
        {"custominfo-dark", {3, 2, true, false}, customInfo},
        {"discovery", {2, 1, false, false}, discovery},
        {"discovery-dark", {2, 1, true, false}, discovery},
        {"device-edit", {3, 2, false, false}, deviceEdit},
        {"device-edit-dark", {3, 2, true, false}, deviceEdit},
        {"save", {3, 2, false, false}, save},
        {"save-dark", {3, 2, true, false}, save},
        {"devicelist", {3, 1, false, false}, deviceList},
        {"devicelist-dark", {3, 1, true, false}, deviceList},
        {"camerasettings", {2, 1, false, false}, cameraSettings},
        {"camerasettings-dark", {2, 1, true, false}, cameraSettings},
        {"catalogue", {3, 2, false, false}, catalogue},
        {"catalogue-dark", {3, 2, true, false}, catalogue},
        {"cameras", {16, 1, false, false}, cameras},
        {"scale", {1, 1, false, false}, scale},
        {"scaled", {3, 2, false, false}, scaled, true},
    };
    return walks;
}
