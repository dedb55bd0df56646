#pragma once

#include <QPointer>
#include <QWebPage>

class EmbeddedWidgets;
class HostServices;

/// A page of the application's user interface.
class GUI_WebPage : public QWebPage
{
    Q_OBJECT

public:
    GUI_WebPage(HostServices *host, QObject *parent);
    ~GUI_WebPage() override;

    /// What goes when the engine has returned from telling of a load, which it does in the midst of
    /// its work; null when it tells of none.
    QObject *telling() const { return m_telling; }

    /// The view goes while the engine tells of a load or script is on the stack, which may be that
    /// of this page: the page goes when they have returned. Until then it begins no script and
    /// shows no widget of the host.
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
    void tell();
    void goLater();
    QObject *hostWidget(const QString &classid);

    HostServices *m_host;
    QPointer<QObject> m_telling; ///< child
    EmbeddedWidgets *m_embedded; ///< child of the page
    bool m_outlivesView = false;
};
