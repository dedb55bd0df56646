#pragma once

#include "standin/network/NetworkSearch.h"

#include <QHash>

/// The result of a search as pages read it.
namespace SearchText {

/// Compact JSON of an object:
///
/// "complete": false when there are devices that had not answered when the search ended.
/// "adapters": an array of objects with the texts "name", "adapteraddress", "subnetmask", and
///     "freeaddress", the lowest address of its subnet that no device has, empty without one.
/// "devices": an array of objects with "serial", "model", the number "heads", and the texts
///     "macaddress", "ipaddress", "subnetmask", "defaultgateway", "adapteraddress" of the adapter
///     that heard it, "name" of its first head in the list of documents, empty when it is not
///     there, and "state": "free" can be connected, "connected" is, "elsewhere" is held by another
///     application, "unreachable" is in the subnet of no adapter, "duplicate" shares its address.
///
/// `names` are those of the listed devices by serial number, `connected` the serial numbers of
/// those that are connected.
QString compactText(const CameraNetwork &network, const NetworkSearch::Result &result,
                    const QHash<QString, QString> &names, const QSet<QString> &connected);

}
