#pragma once

#include "plugin/contract/HostTypes.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

class GUI_WebView;
class HostServices;

/// What a page sees of the application: the base of every object that script calls.
///
/// It holds no state of the application but a few cached values and forwards to the host. The
/// creator owns it; there is no parent. Its object name is the page name, under which the host
/// shows it to the page. GUI thread.
class JS_Mediator : public QObject
{
    Q_OBJECT

public:
    /// `host` outlives the mediator and is not owned. `name` is the page name, such as "savefile".
    JS_Mediator(HostServices *host, const QString &name);
    ~JS_Mediator() override;

    HostServices *host() const { return m_host; }
    QString pageName() const { return m_name; }

    /// The view that shows the page, null before the host has attached one and after it has gone.
    GUI_WebView *webView() const;
    void setWebView(GUI_WebView *view); ///< for the host's attachMediator()

    /// Flags that refresh the user interface after an operation; 63 refreshes everything.
    int updateFlags() const { return m_updateFlags; }
    void setUpdateFlags(int flags) { m_updateFlags = flags; }

signals:
    void open();
    void update();
    void close();
    void enterQtWidget();

public slots:
    /// Script messages at this level are dropped.
    void log(const QString &msg);
    void infoLog(const QString &msg);
    /// Script messages at this level are dropped.
    void debugLog(const QString &msg);
    void errorLog(const QString &msg);
    void userOperationLogWebView(const QString &url, const QString &operation,
                                 const QString &control, const QString &id,
                                 const QString &className, const QVariant &value);
    void userOperationErrorLog(const QString &message);

protected:
    uint rangeMax() const { return m_rangeMax; }
    double skipMinFrames() const { return m_skipMinFrames; }
    double skipMaxFrames() const { return m_skipMaxFrames; }
    uint skipRateDivisor() const { return m_skipRateDivisor; }
    const QList<double> &skipFrameValues() const { return m_skipFrameValues; }

private:
    HostServices *m_host;
    QPointer<QObject> m_webView;
    QString m_name;
    uint m_rangeMax = 0;
    int m_updateFlags = 63;
    double m_skipMinFrames = 1.0;
    double m_skipMaxFrames = 1.0;
    uint m_skipRateDivisor = 0;
    QList<double> m_skipFrameValues;
};
