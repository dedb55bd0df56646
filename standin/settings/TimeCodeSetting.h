#pragma once

#include "contract/HostTypes.h"

#include <QMap>
#include <QVariant>

class StandInSettings;

/// Where the fields of the time code stand in the settings, each under a key of its own.
namespace TimeCodeSetting {

/// What is stored; fields of which nothing is stored stay as they are. A text that is no number
/// reads as 0.
void read(const StandInSettings &settings, TimeCodeRecord &out);

/// All fields by their keys.
QMap<QString, QVariant> values(const TimeCodeRecord &record);

}
