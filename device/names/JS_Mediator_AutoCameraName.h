#pragma once

#include "bridge/mediator/JS_Mediator.h"

/// What a page sees of the camera names that the user keeps in a file, to complete a name with. The
/// setting "usercustom/cameraNameFilePath" tells the file. It is read anew at each call, so what
/// the user changes in it counts at the next one. A bad file gives no names and no failure: the log
/// alone tells of it. GUI thread.
class JS_Mediator_AutoCameraName : public JS_Mediator
{
    Q_OBJECT

public:
    /// `host` outlives the mediator. `name` is the page name, such as "adddeviceAutoCameraName".
    JS_Mediator_AutoCameraName(HostServices *host, const QString &name);

public slots:
    /// Whether names are to be completed and the file is there; false when the host fails.
    bool existsAutoCompleteFile();

    /// The names as CameraNameList::pageText() gives them; an empty list when the file cannot be
    /// read or the host fails. Only a regular file of less than 256 MiB is opened.
    QString autoCompleteCameraList();
};
