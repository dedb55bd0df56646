#pragma once

#include <QByteArray>
#include <QString>

/// The one way in which a file of the user is written anew.
namespace ReplaceFile {

enum class Result {
    Written,
    NotOpened, ///< nothing was written
    Failed     ///< it broke off on the way, as on a full disk
};

struct Outcome
{
    Result result = Result::Written;
    QString reason; ///< the system's own words; empty when it was written
};

/// Makes `content` the whole content of the file at `path`, in place of what is there. The file is
/// replaced once the new one is whole: until then, and when it cannot be written, the old one is
/// as it was. In a folder that takes no new files the old file itself is written, which a failure
/// leaves cut. The folder must exist; what is there and no plain file is not opened. Any thread.
Outcome write(const QString &path, const QByteArray &content);

}
