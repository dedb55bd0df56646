#include "bridge/dialog/GUI_WebViewDialog.h"

#include "bridge/dialog/DialogPlacement.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/OperationLog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostGuard.h"
#include "contract/HostValues.h"
#include "foundation/LogGroups.h"
#include "foundation/Utilities.h"

#include <QCloseEvent>
#include <QPropertyAnimation>
#include <QUrl>
#include <QVBoxLayout>

GUI_WebViewDialog::GUI_WebViewDialog(HostServices *host, const QString &title, const QString &url,
                                     JS_Mediator_Dialog *mediator, QWidget *parent)
    : GUI_Dialog(parent, Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint | Qt::WindowTitleHint,
                 true),
      m_host(host), m_mediator(mediator), m_layout(new QVBoxLayout(this)),
      m_webView(new GUI_WebView(host, this))
{
    setGuardingHost(host);
    m_entered.emplace(host);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->addWidget(m_webView);
    setWindowTitle(m_host->translate(title));
    connect(this, &QDialog::rejected, this, &GUI_WebViewDialog::slotRejected);
    connect(m_webView, &QWebView::loadStarted, this, &GUI_WebViewDialog::loadStarted);
    connect(m_webView, &QWebView::loadProgress, this, &GUI_WebViewDialog::loadProgress);
    connect(m_webView, &QWebView::loadFinished, this, &GUI_WebViewDialog::loadFinished);
    if (m_mediator) {
        connect(mediator, &JS_Mediator_Dialog::accept, this,
                [this] { contained([this] { accept(); }); });
        connect(mediator, &JS_Mediator_Dialog::reject, this,
                [this] { contained([this] { reject(); }); });
    }
    m_host->attachMediator(m_webView, mediator); // without one the page still gets the host's own
    m_webView->load(QUrl(url));
}

GUI_WebViewDialog::~GUI_WebViewDialog()
{
    m_heldWhileLoading.reset();
    m_entered.reset();
    m_mediator.reset();
    m_extraMediators.clear();
}

void GUI_WebViewDialog::addMediator(JS_Mediator *mediator)
{
    m_extraMediators.emplace_back(mediator);
    m_host->attachMediator(m_webView, mediator);
}

void GUI_WebViewDialog::done(int result)
{
    if (m_closing)
        return;
    QPointer<GUI_WebViewDialog> self(this);
    m_closing = true;
    GUI_Dialog::done(result);
    if (self)
        m_closing = false;
}

void GUI_WebViewDialog::closeEvent(QCloseEvent *event)
{
    OperationLogScope trace(QLatin1String("GUI_WebViewDialog::closeEvent"));
    rejectOnClose(event);
}

void GUI_WebViewDialog::rejectOnClose(QCloseEvent *event)
{
    QPointer<GUI_WebViewDialog> self(this);
    contained([this] { reject(); });
    if (self && isVisible())
        event->ignore(); // it may not finish yet
}

void GUI_WebViewDialog::slotRejected()
{
    JS_Mediator_Dialog *mediator = m_mediator.get();
    if (!mediator)
        return;
    guarded(m_host, [&] { PageSignal::send(mediator, [&] { emit mediator->rejected(); }); });
}

void GUI_WebViewDialog::loadStarted()
{
    OperationLogScope trace(QLatin1String("GUI_WebViewDialog::loadStarted"));
    HostServices *host = m_host;
    QPointer<GUI_WebViewDialog> self(this); // a call of the host may end it
    if (!m_heldWhileLoading) {
        guarded(host, [&] {
            auto held = std::make_unique<DeterUpdateScope>(host);
            if (self)
                m_heldWhileLoading = std::move(held);
        });
    }
    if (!self)
        return;
    m_webView->setFocus(Qt::OtherFocusReason);
    stopFadeIn();
    setWindowOpacity(0.0); // nobody sees the page half painted
}

void GUI_WebViewDialog::loadProgress(int) {}

void GUI_WebViewDialog::stopFadeIn()
{
    if (m_fadeIn)
        m_fadeIn->stop();
}

void GUI_WebViewDialog::loadFinished(bool ok)
{
    OperationLogScope trace(QLatin1String("GUI_WebViewDialog::loadFinished"),
                            LogGroups::group(QLatin1String("ok"), ok));
    HostServices *host = m_host;
    QPointer<GUI_WebViewDialog> self(this); // a call of the host may end it
    guarded(host, [&] { centerDialog(host, self); });
    if (self) {
        stopFadeIn();
        m_fadeIn = UTL::fadeInAnimation(this);
        m_fadeIn->start(QAbstractAnimation::DeleteWhenStopped);
    }
    if (self)
        std::unique_ptr<DeterUpdateScope>(std::move(m_heldWhileLoading)).reset();
    if (self && m_refreshOnLoad)
        guarded(host, [&] { host->updateUI(UpdateFlag::Everything, true); });
    if (!self)
        return;
    const bool canClose = windowFlags() & Qt::WindowCloseButtonHint;
    if (!ok && !canClose && isVisible()) // no page is there that could close it
        guarded(host, [&] { emit signalEnableCloseButton(); });
}
