#pragma once

#include "bridge/page/PageProof.h"

#include <QString>

class GUI_WebView;
class StandInHost;

/// Tells what goes wrong in pages: what their scripts throw, with page, file and line, and what is
/// missing, a page or a file of it. Each failure is a critical line of the log and a failed(); a
/// dialog that its page works directly leaves the line itself.
///
/// It hears of every page that the host shows a mediator to. Each of them sees it as
/// `pageFailures`, and tells of its scripts by the script that all pages share. A page that cannot
/// be loaded tells nothing, so its view is asked. GUI thread.
class PageFailures : public PageProof<QObject>
{
    Q_OBJECT

public:
    /// Comes before the pages; the host outlives it.
    explicit PageFailures(StandInHost &host, QObject *parent = nullptr);

signals:
    /// Behind the script that failed, in the next turn of the event loop.
    void failed(const QString &text);

public slots:
    /// For pages: `what` was thrown, at a line of a file. Without a file the place is unknown.
    void scriptFailed(const QString &page, const QString &what, const QString &file, int line);

    /// The same, where the page has told the log itself.
    void scriptFailureIsLogged(const QString &page, const QString &what, const QString &file,
                               int line);

    /// For pages: a script, a style sheet or a picture is not there.
    void fileIsMissing(const QString &page, const QString &file);

private:
    void watch(GUI_WebView *view);
    void tell(const QString &text);
    void notice(const QString &text);
};
