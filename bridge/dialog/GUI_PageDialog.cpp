#include "bridge/dialog/GUI_PageDialog.h"

#include "bridge/page/GUI_WebView.h"
#include "bridge/page/PageHandlers.h"
#include "foundation/Keys.h"

#include <QPointer>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebFrame>

GUI_PageDialog::GUI_PageDialog(HostServices *host, const QString &title, QWidget *parent)
    : GUI_Dialog(parent, Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint | Qt::WindowTitleHint,
                 true),
      m_host(host), m_webView(new GUI_WebView(host, this))
{
    setGuardingHost(host);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_webView);
    setWindowTitle(host->translate(title));
}

GUI_PageDialog::~GUI_PageDialog()
{
    // Its page may still begin anew, and call what is a dialog yet.
    disconnect(m_webView->page()->mainFrame(), nullptr, this, nullptr);
    delete m_webView;
}

void GUI_PageDialog::showToPage(const QString &name)
{
    HostServices *services = m_host; // a call of the host may end the dialog
    const QPointer<QWebFrame> frame(m_webView->page()->mainFrame());
    frame->addToJavaScriptWindowObject(name, this);
    QObject *app = guarded(services, static_cast<QObject *>(nullptr),
                           [services] { return services->appScriptObject(); });
    if (app && frame)
        frame->addToJavaScriptWindowObject(QLatin1String("app"), app);
}

void GUI_PageDialog::loadPage(const QString &url)
{
    QWebFrame *frame = m_webView->page()->mainFrame();
    PageHandlers::guard(frame, this);
    connect(frame, &QWebFrame::javaScriptWindowObjectCleared, this,
            &GUI_PageDialog::populateJavaScriptWindowObject);
    m_webView->load(QUrl(url));
}

void GUI_PageDialog::acceptAndClose()
{
    QPointer<GUI_PageDialog> self(this);
    accept();
    if (self)
        close();
}

void GUI_PageDialog::rejectAndClose()
{
    QPointer<GUI_PageDialog> self(this);
    reject();
    if (self)
        close();
}

QString GUI_PageDialog::style()
{
    const QString light = QLatin1String("light");
    return guarded(m_host, light,
                   [&] { return m_host->getPrefString(Keys::application.style, light); });
}

QString GUI_PageDialog::translated(const QString &text)
{
    return guarded(m_host, QString(), [&] { return m_host->translate(text); });
}
