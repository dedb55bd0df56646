#pragma once

#include "contract/HostTypes.h"

#include <QPointer>
#include <QWidget>

class StandInHost;

/// The support file: a ZIP that tells the makers what was going on.
namespace SupportFile {

/// What the host cannot know.
struct Extras
{
    QString operationLog;            ///< lines of the message log
    QStringList hostCalls;           ///< that have left the journal
    QImage frame;                    ///< as it is shown now; null: the current document's first
    QPointer<QWidget> trelvikWindow; ///< the window of several cameras
};

/// Takes everything that goes in: "settings.txt" and "cameras.txt", "operation-log.txt" and
/// "host-calls.txt", a "camera-log-KEY.txt" for each document that keeps one, "environment.txt" and
/// "version.txt" as texts; the main window, the multi-camera window while it is shown, and the
/// current frame as pictures. What is secret is masked. GUI thread.
SupportSnapshot take(StandInHost &host, const Extras &extras = {});

/// Writes the ZIP: the texts under their names, the pictures as "screen.png", "trelvik-window.png"
/// and "frame.png", a null one not at all. A file that exists is replaced once the new one is
/// whole (ReplaceFile). False when it cannot be written, or `path` names something that is no plain
/// file. Any thread.
bool write(const QString &path, const SupportSnapshot &snapshot);

}
