#pragma once

#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of the dialog sees that names a camera and sets its addresses. It works on the
/// current document. GUI thread.
class JS_Mediator_EditDeviceDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    /// With the page name, such as "editdevice".
    using JS_Mediator_Dialog::JS_Mediator_Dialog;

public slots:
    /// What the page shows of the camera, as a JSON object: "{}" without a document, empty when the
    /// host fails.
    QString getEditDeviceDialogSettings();

    /// Gives the camera this name, and these addresses for its present network kind, then ends the
    /// dialog. Without a document nothing happens; the dialog stays open when the host fails. The
    /// camera is the one that refuses a text.
    void ok(const QString &cameraName, const QString &ipAddress, const QString &subnetmask,
            const QString &defaultGateway);

    /// Ends the dialog; a network kind that was chosen stays.
    void cancel();

    /// Chooses the network kind of the camera at once; its numbers are the camera's own.
    void setEditEtherType(int type);
};
