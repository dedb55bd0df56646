#pragma once

#include "bridge/dialog/GUI_Dialog.h"
#include "bridge/operation/DeterUpdateScope.h"
#include "bridge/operation/DialogEnterScope.h"
#include "bridge/page/PageObject.h"

#include <QList>
#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

class GUI_WebView;
class HostServices;
class JS_Mediator;
class JS_Mediator_Dialog;
class QPropertyAnimation;
class QVBoxLayout;

/// A dialog that consists of one page and its mediator, which it owns.
///
/// While the page loads, the host's refreshes are held back and the dialog is transparent; then it
/// fades in. A page that does not exist gives an empty dialog that can be closed: one without a
/// close button gets it back when it is on the screen.
class GUI_WebViewDialog : public GUI_Dialog
{
    Q_OBJECT

public:
    /// `title` is an English source text, translated by the host. `mediator` passes into the
    /// dialog's ownership and may be null. Throws what the host throws; the mediator is gone then.
    GUI_WebViewDialog(HostServices *host, const QString &title, const QString &url,
                      JS_Mediator_Dialog *mediator, QWidget *parent);
    ~GUI_WebViewDialog() override;

    /// Shows a further mediator to the page; it passes into the dialog's ownership. Throws what the
    /// host throws.
    void addMediator(JS_Mediator *mediator);

    JS_Mediator_Dialog *mediator() const { return m_mediator.get(); }
    GUI_WebView *webView() const { return m_webView; }

    /// Accepts or rejects once: what a page asks for in its handler of `rejected` comes too late.
    void done(int result) override;

protected:
    HostServices *host() const { return m_host; }

    /// Whether the whole user interface is refreshed once the page has loaded; true at start.
    void setRefreshOnLoad(bool refresh) { m_refreshOnLoad = refresh; }

    void closeEvent(QCloseEvent *event) override;

    /// What every dialog does when its frame is closed, inside the trace of its closeEvent().
    void rejectOnClose(QCloseEvent *event);

private slots:
    void slotRejected();
    void loadStarted();
    void loadProgress(int percent);
    void loadFinished(bool ok);

private:
    void stopFadeIn();

    HostServices *m_host;
    std::unique_ptr<JS_Mediator_Dialog, PageObjectOwner> m_mediator;
    std::vector<std::unique_ptr<JS_Mediator, PageObjectOwner>> m_extraMediators;
    QVBoxLayout *m_layout;
    GUI_WebView *m_webView;
    std::optional<DialogEnterScope> m_entered;
    bool m_refreshOnLoad = true;
    bool m_closing = false;
    std::unique_ptr<DeterUpdateScope> m_heldWhileLoading;
    QPointer<QPropertyAnimation> m_fadeIn; ///< child, null when it has ended
};
