#pragma once

#include <QWebPage>

class EmbeddedWidgets;
class HostServices;

/// A page of the application's user interface.
class GUI_WebPage : public QWebPage
{
    Q_OBJECT

public:
    GUI_WebPage(HostServices *host, QObject *parent);

    /// The view goes while script is on the stack, which may be that of this page: the page goes
    /// when it has returned. Until then it begins no script and shows no widget of the host.
    void outliveView();

protected:
    /// The native widget behind an object tag: "mdi" is the multi-document area, the others belong
    /// to plug-ins. Null for an unknown class id, without the plug-in, or when the host fails. The
    /// widget stays the host's: it lives on when its tag, the page or the view goes.
    QObject *createPlugin(const QString &classid, const QUrl &url, const QStringList &paramNames,
                          const QStringList &paramValues) override;

    /// Pages report by infoLog() and errorLog(); what they write to the console goes nowhere.
    void javaScriptConsoleMessage(const QString &message, int lineNumber,
                                  const QString &sourceId) override;

private:
    QObject *hostWidget(const QString &classid);

    HostServices *m_host;
    EmbeddedWidgets *m_embedded; ///< child of the page; null when the view has gone before it
};
