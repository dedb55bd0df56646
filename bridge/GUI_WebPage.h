#pragma once

#include <QList>
#include <QPointer>
#include <QWebPage>

class HostServices;

/// A page of the application's user interface.
class GUI_WebPage : public QWebPage
{
    Q_OBJECT

public:
    GUI_WebPage(HostServices *host, QObject *parent);
    ~GUI_WebPage() override;

    /// Takes the native widgets that stand in the page out of it, hidden and without a parent: they
    /// belong to the host, and live on when the page goes.
    void releaseEmbeddedWidgets();

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// The native widget behind an object tag: "mdi" is the multi-document area, the others belong
    /// to plug-ins. Null for an unknown class id or without the plug-in.
    QObject *createPlugin(const QString &classid, const QUrl &url, const QStringList &paramNames,
                          const QStringList &paramValues) override;

    /// Pages report by infoLog() and errorLog(); what they write to the console goes nowhere.
    void javaScriptConsoleMessage(const QString &message, int lineNumber,
                                  const QString &sourceId) override;

private:
    QObject *hostWidget(const QString &classid);

    HostServices *m_host;
    QList<QPointer<QWidget>> m_embedded;
};
