#pragma once

#include <QString>

#include <functional>

class HostServices;

/// Work on the thread pool while the host shows its progress.
namespace ConcurrentTask {

/// Runs `work` on a pool thread and waits in the host's runWithProgress() until it has ended;
/// `text` is shown there, untranslated.
///
/// Throws the APP_Exception that `work` threw, as APP_Exception, without another log line; a
/// QUnhandledException for anything else that `work` threw; and what runWithProgress() itself
/// threw. In every case `work` has ended when this returns, so it may use what lies on the caller's
/// stack. GUI thread; callers put it into guarded().
void run(HostServices *host, const QString &text, const std::function<void()> &work);

}
