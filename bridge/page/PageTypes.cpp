#include "bridge/page/PageTypes.h"

#include "contract/HostTypes.h"

#include <QMetaType>

// Other names of plain types: they leave nothing behind when the module goes.
void registerPageTypes()
{
    qRegisterMetaType<DOCKEY>("DOCKEY");
    qRegisterMetaType<PARTITIONNUMBER>("PARTITIONNUMBER");
}
