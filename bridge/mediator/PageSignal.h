#pragma once

#include <functional>

class QObject;

/// The one way in which native code signals to a page.
///
/// The engine ends the process when a script's handler throws on a signal that no script started.
/// PageHandlers catches what handlers throw; a handler that it does not know of, in another frame,
/// must not end the process either. So the signal is sent from inside a small script. GUI thread.
namespace PageSignal {

/// Runs `emission`, which emits signals of the object, for the page that sees it: a mediator or a
/// dialog of the page's own; directly when there is no page. Throws what `emission` throws.
void send(QObject *object, const std::function<void()> &emission);

}
