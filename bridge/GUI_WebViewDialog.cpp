#include "bridge/GUI_WebViewDialog.h"

#include "bridge/GUI_WebView.h"
#include "bridge/JS_Mediator_Dialog.h"
#include "plugin/contract/HostGuard.h"

#include <QUrl>
#include <QVBoxLayout>

GUI_WebViewDialog::GUI_WebViewDialog(HostServices *host, const QString &title, const QString &url,
                                     JS_Mediator_Dialog *mediator, QWidget *parent)
    : GUI_Dialog(parent, Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint | Qt::WindowTitleHint,
                 true),
      m_host(host), m_mediator(mediator), m_layout(new QVBoxLayout),
      m_webView(new GUI_WebView(host, this))
{
    if (m_host->needsDialogEnterNotice()) {
        m_host->notifyDialogEntered();
        m_notifiedHost = true;
    }
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->addWidget(m_webView);
    setLayout(m_layout);
    setWindowTitle(m_host->translate(title));
    connect(this, &QDialog::rejected, this, &GUI_WebViewDialog::slotRejected);
    if (m_mediator) {
        connect(mediator, &JS_Mediator_Dialog::accept, this, &QDialog::accept);
        connect(mediator, &JS_Mediator_Dialog::reject, this, &QDialog::reject);
        m_host->attachMediator(m_webView, mediator);
    }
    m_webView->load(QUrl(url));
}

GUI_WebViewDialog::~GUI_WebViewDialog()
{
    if (m_notifiedHost) {
        guarded(m_host, [&] {
            if (!m_host->isDialogExitSuppressed())
                m_host->notifyDialogLeft();
        });
    }
    m_mediator.reset();
    m_extraMediators.clear();
}

void GUI_WebViewDialog::addMediator(JS_Mediator *mediator)
{
    m_extraMediators.emplace_back(mediator);
    m_host->attachMediator(m_webView, mediator);
}

void GUI_WebViewDialog::slotRejected()
{
    if (m_mediator)
        emit m_mediator->rejected();
}
