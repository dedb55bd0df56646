#pragma once

#include "foundation/Keys.h"

/// The integers that select a save's settings: modes, which name a kind of save, and target kinds,
/// which name one level of its path. Any thread.
namespace SaveModes {

/// The modes that the toolkit itself passes on. The host passes others, up to 18.
constexpr int ExportMode = 1;
constexpr int LayoutMode = 4;
constexpr int ConvertMode = 6;
constexpr int SnapMode = 7;
constexpr int FilePreview = 9;
constexpr int ExportPreview = 10;
constexpr int ConvertPreview = 11;
constexpr int ReportMode = 16;
constexpr int ReportPreview = 17;
constexpr int LayoutPreview = 18;

/// The settings that a save reads.
enum class Family { Export, Convert, Snap, Report, Layout };

/// The settings of a mode; those of Export for every number that is no other mode.
Family family(int mode);

/// The settings of a mode's group directory. A layout has none: its preview takes those of Export.
Family groupDirFamily(int mode);

/// The keys of a family.
const Keys::SaveKeys &keys(Family family);

/// The target kinds of a family's levels, for which digits are read and custom items chosen. A
/// layout has no group directory: -1.
int groupDirKind(Family family);
int subDirKind(Family family);
int fileNameKind(Family family);

/// The keys that hold the digits of a target kind, from 0 to 16; 13 is the name of data in a drive.
/// Empty where the kind has none, and for every other number.
Keys::NumberDigitKeys digitKeys(int kind);

}
