#pragma once

#include "foundation/SaveModes.h"

/// Settings that pages write and the host alone reads: no code of the library asks for them. Any
/// thread, read-only.
namespace HostKeys {

/// What a document adds to the name of a file.
struct FileNameKeys
{
    QString addTextValue;               ///< a text
    QString addNumber;                  ///< the number of the file
    QString addNumberFormat;            ///< "auto": digits of camera and head by what there is
    Keys::NumberDigitKeys manualDigits; ///< as the user typed them, kept while they are "auto"
    QString addDetail;                  ///< texts of the information
    QString details;                    ///< ids of the items, joined by ","
    QString detailsConnect;             ///< what stands before each of them
    QString sequenceDigits;             ///< digits of a frame's number
};

/// One kind of save. A field that this kind does not have is empty.
struct SaveKeys
{
    FileNameKeys fileName;
    Keys::NumberDigitKeys groupDirManualDigits; ///< as the user typed them
    Keys::NumberDigitKeys subDirManualDigits;
};

/// The keys of a family.
const SaveKeys &save(SaveModes::Family family);

/// Whether the names of cameras are completed from the user's file.
inline const QString completeCameraNames = QStringLiteral("usercustom/completeCameraNames");

}
