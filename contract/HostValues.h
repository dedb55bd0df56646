#pragma once

// Numbers that host and tools exchange. They are the host's: a value here never changes.

/// HostMain::currentMode(), PLG_Interface::isModeAllowed() and onModeChanged().
namespace HostMode {
constexpr int Live = 0;
constexpr int Memory = 1; ///< plays back what the cameras hold
constexpr int File = 2;   ///< plays back opened files
}

/// PLG_Interface::checkKind(): how a tool's button knows whether it is on.
namespace CheckKind {
constexpr int ByName = 0;   ///< the lock, the zoom, or the document's isToolOn()
constexpr int AlwaysOn = 1; ///< wherever there is a document
constexpr int Transaction =
    2; ///< the document's isToolAvailable(); the panel edits in a transaction
constexpr int TransactionToo = 3; ///< the same
constexpr int CurrentPlugin = 4;  ///< while the tool is the current one
constexpr int AlwaysOnToo = 5;
constexpr int Dialog = 6; ///< while the tool's dialog is on the screen
}

/// PLG_Interface::buttonKind(): how a tool's button behaves.
namespace ButtonKind {
constexpr int Plain = 0;
constexpr int Toggle = 1;
constexpr int CustomToggle = 4; ///< a toggle whose state is the tool's customChecked()
}

/// PLG_Interface::pluginType().
namespace PluginType {
constexpr int Button = 2;
}

/// PLG_Interface::quickToolMode().
namespace QuickToolMode {
constexpr int Exclusive = 1; ///< switches the other quick tools off
}

/// Bits of HostMain::updateUI().
namespace UpdateFlag {
constexpr unsigned SendSettings = 1; ///< sends a document's settings to all devices
constexpr unsigned Display = 4;      ///< shows the picture anew
constexpr unsigned Operation = 63;   ///< what an operation of a page refreshes
constexpr unsigned Everything = ~0u;
}

/// What has changed, for DOC_MainPart::notifyChange().
namespace DocumentChange {
constexpr int Settings = 1;
}

/// DOC_CameraPart::hasCapability().
namespace Capability {
constexpr int Wireless = 112;
constexpr int Shutdown = 117;
constexpr int CameraLog = 158;
constexpr int MaxDataCount = 163;
constexpr int CameraLogToo = 176;
}
