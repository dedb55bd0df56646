#include "workbench/pages/PageFailures.h"

#include "bridge/page/GUI_WebView.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/PageWindow.h"

#include <QDebug>
#include <QTimer>
#include <QWebFrame>

#include <memory>

namespace {

QString failureText(const QString &page, const QString &what, const QString &file, int line)
{
    if (file.isEmpty())
        return PageFailures::tr("The page %1 failed: %2").arg(page, what);
    return PageFailures::tr("The page %1 failed: %2 (%3:%4)")
        .arg(page, what, file, QString::number(line));
}

}

PageFailures::PageFailures(StandInHost &host, QObject *parent) : PageProof<QObject>(parent)
{
    connect(host.events(), &StandInEvents::pageAttached, this, &PageFailures::watch);
}

void PageFailures::scriptFailed(const QString &page, const QString &what, const QString &file,
                                int line)
{
    tell(failureText(page, what, file, line));
}

void PageFailures::scriptFailureIsLogged(const QString &page, const QString &what,
                                         const QString &file, int line)
{
    notice(failureText(page, what, file, line));
}

void PageFailures::fileIsMissing(const QString &page, const QString &file)
{
    tell(tr("The page %1 has no file %2").arg(page, file));
}

void PageFailures::watch(GUI_WebView *view)
{
    if (!PageWindow::show(view, QStringLiteral("pageFailures"), this))
        return; // it sees several mediators
    QWebFrame *frame = view->page()->mainFrame();

    // A page that gives way to another one while it loads is not missing.
    const auto isLoading = std::make_shared<bool>(false);
    connect(view, &QWebView::loadStarted, this, [isLoading] { *isLoading = true; });
    connect(view, &QWebView::loadFinished, this, [this, frame, isLoading](bool ok) {
        *isLoading = false;
        if (ok)
            return;
        const QString url = frame->requestedUrl().toString();
        QTimer::singleShot(0, this, [this, isLoading, url] {
            if (!*isLoading)
                tell(tr("The page %1 cannot be loaded").arg(url));
        });
    });
}

void PageFailures::tell(const QString &text)
{
    qCritical().noquote() << text;
    notice(text);
}

// A notice moves what is beside it, which may be the page whose script is running.
void PageFailures::notice(const QString &text)
{
    QTimer::singleShot(0, this, [this, text] { emit failed(text); });
}
