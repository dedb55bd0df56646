#pragma once

#include "save/path/NumberText.h"

#include <QString>

/// Settings of a group or sub directory.
struct FolderSettings
{
    bool isUsed = false;
    bool isNamedAsFile = false;     ///< after the file, else by `name`
    bool takesFullFileName = false; ///< with number and time, when it is named after the file
    QString name;
    bool addsNumber = false;
    bool sizesDigits = false; ///< digits of camera and head follow from what there is
    NumberText::Digits digits;
    bool addsTime = false;
    QString timeFormat;
};

/// Settings of a file name.
struct FileNameSettings
{
    QString name;
    bool asOriginal = false;
    bool asPartitionName = false;
    bool usesCustomInfo = false;
    bool usesOtherDocument = false; ///< custom information of another document
    int otherDocument = -1;         ///< its key, below 0 for none
    bool includesUnit = false;
    int sessionDigits = 0;
    bool addsTime = false;
    QString timeFormat;
};

/// Settings of the small picture beside a file.
struct ThumbnailSettings
{
    bool hasInformationFile = false; ///< which takes its place
    bool isSaved = false;
    QString addition; ///< behind the file's path
};
