#include "foundation/SaveModes.h"

namespace SaveModes {

Family family(int mode)
{
    switch (mode) {
    case LayoutMode:
    case 5:
    case LayoutPreview:
        return Family::Layout;
    case ConvertMode:
    case ConvertPreview:
        return Family::Convert;
    case SnapMode:
        return Family::Snap;
    case ReportMode:
    case ReportPreview:
        return Family::Report;
    default:
        return Family::Export;
    }
}

Family groupDirFamily(int mode)
{
    const Family own = family(mode);
    return own == Family::Layout ? Family::Export : own;
}

const Keys::SaveKeys &keys(Family family)
{
    switch (family) {
    case Family::Convert:
        return Keys::convertSave;
    case Family::Snap:
        return Keys::snapSave;
    case Family::Report:
        return Keys::reportSave;
    case Family::Layout:
        return Keys::layoutSave;
    case Family::Export:
        break;
    }
    return Keys::exportSave;
}

int groupDirKind(Family family)
{
    switch (family) {
    case Family::Convert:
        return 3;
    case Family::Snap:
        return 6;
    case Family::Report:
        return 9;
    case Family::Layout:
        return -1;
    case Family::Export:
        break;
    }
    return 0;
}

int subDirKind(Family family)
{
    switch (family) {
    case Family::Convert:
        return 4;
    case Family::Snap:
        return 7;
    case Family::Report:
        return 10;
    case Family::Layout:
        return 15;
    case Family::Export:
        break;
    }
    return 1;
}

int fileNameKind(Family family)
{
    switch (family) {
    case Family::Convert:
        return 5;
    case Family::Snap:
        return 8;
    case Family::Report:
        return 11;
    case Family::Layout:
        return 16;
    case Family::Export:
        break;
    }
    return 2;
}

Keys::NumberDigitKeys digitKeys(int kind)
{
    switch (kind) {
    case 0:
        return Keys::exportSave.groupDir.digits;
    case 1:
        return Keys::exportSave.subDir.digits;
    case 2:
        return Keys::exportSave.fileName.digits;
    case 3:
        return Keys::convertSave.groupDir.digits;
    case 4:
        return Keys::convertSave.subDir.digits;
    case 5:
        return Keys::convertSave.fileName.digits;
    case 6:
        return Keys::snapSave.groupDir.digits;
    case 7:
        return Keys::snapSave.subDir.digits;
    case 8:
        return Keys::snapSave.fileName.digits;
    case 9:
        return Keys::reportSave.groupDir.digits;
    case 10:
        return Keys::reportSave.subDir.digits;
    case 11:
        return Keys::reportSave.fileName.digits;
    case 13:
        return Keys::exportSave.kvDataNameDigits;
    case 15:
        return Keys::layoutSave.subDir.digits;
    case 16:
        return Keys::layoutSave.fileName.digits;
    default:
        return {};
    }
}

}
