#pragma once

#include <QWebPage>

class HostServices;

/// A page of the application's user interface.
class GUI_WebPage : public QWebPage
{
    Q_OBJECT

public:
    GUI_WebPage(HostServices *host, QObject *parent);

protected:
    /// Pages report by infoLog() and errorLog(); what they write to the console goes nowhere.
    void javaScriptConsoleMessage(const QString &message, int lineNumber,
                                  const QString &sourceId) override;

private:
    HostServices *m_host;
};
