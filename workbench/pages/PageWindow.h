#pragma once

class GUI_WebView;
class QObject;
class QString;

/// The window object of a page, which holds what its scripts can reach.
namespace PageWindow {

/// Shows an object to the page under a name, now and whenever a page begins in the view, as long as
/// the object lives. False, and nothing done, when the view shows something under the name already.
/// GUI thread.
bool show(GUI_WebView *view, const QString &name, QObject *object);

}
