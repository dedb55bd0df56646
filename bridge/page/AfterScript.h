#pragma once

#include <functional>

class QObject;
class QWebFrame;

/// What waits until the script of pages has returned.
///
/// A slot that script calls may run an event loop, and in that loop everything may be closed that
/// the script came from. The engine does not survive its page going under its own script. It keeps
/// one stack for all pages, which it shows to any of them: so a page that calls no slot but its own
/// alert() is seen, too, and one that belongs to another copy of this library. GUI thread.
namespace AfterScript {

/// Whether script is on the stack, of whatever page. `frame` is asked, a frame of any page that has
/// loaded; null asks a page of its own, which costs about a millisecond.
bool isScriptRunning(QWebFrame *frame = nullptr);

/// Runs `task` when no script is on the stack any more, at the earliest when control has returned
/// to an event loop, and not while `notBefore` is there; before this library is unloaded at the
/// latest. Tasks run in their order. Nothing may escape from one.
void run(const std::function<void()> &task, const QObject *notBefore = nullptr);

/// Whether the library is being unloaded, so that a task runs for the last time that it can.
bool isEnding();

}
