#pragma once

#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of the dialog sees that adds a camera by its address, or a dummy. GUI thread.
class JS_Mediator_AddDeviceDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    /// `host` outlives the mediator. `connect` tells whether the new camera is to be connected at
    /// once.
    JS_Mediator_AddDeviceDialog(HostServices *host, bool connect);

    bool connectsAtOnce() const { return m_connect; }

public slots:
    /// What the page begins with: JSON with "DefaultCameraName", "DefaultIPAddress" and
    /// "DefaultDummyIPAddress", the first address that no dummy has. Empty when the host fails.
    QString getAddDeviceDialogSettings();

    /// Adds the camera and ends the dialog. A name with a character that no file name may hold, or
    /// an address that does not begin with four dotted numbers, does nothing at all: the page is
    /// the one that warns. The dialog stays open when the host fails.
    void ok(const QString &cameraNeme, const QString &ipAddress, bool isDummy);

    void cancel();

private:
    bool m_connect;
};
