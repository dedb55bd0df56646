#pragma once

#include "contract/HostTypes.h"

#include <QRect>
#include <QString>

#include <functional>

class HostPrefsDialog;

/// What a user interface around the stand-in host brings: the calls that need a window. While one
/// is missing its operation does nothing but leave its line in the journal, unless it says
/// otherwise. All are called on the GUI thread but writeSupportFile, and outlive the host's use of
/// them.
struct HostFrontEnd
{
    HostPrefsDialog *prefsDialog = nullptr;
    std::function<void()> showAbout; ///< missing: a message box, while the host is interactive
    std::function<void()> showEthernetSettings;
    std::function<void(const QString &key, const QRect &rect)> showDropDown;
    std::function<void()> hideDropDown;
    std::function<SupportSnapshot()> takeSupportSnapshot; ///< missing: the state's supportSnapshot

    /// Whether the file was written; on any thread.
    std::function<bool(const QString &path, const SupportSnapshot &)> writeSupportFile;
};
