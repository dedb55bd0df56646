#pragma once

#include <QObject>
#include <QString>

#include <exception>
#include <functional>

/// Puts a script frame around an emission: the page's frame calls run(), and what a handler throws
/// ends in the script that called it.
class PageSignalFrame : public QObject
{
    Q_OBJECT

public:
    explicit PageSignalFrame(const std::function<void()> &emission);

    bool hasRun() const { return m_hasRun; }
    QString scriptError() const { return m_scriptError; }

    /// Throws again what the emission threw; nothing when it did not.
    void rethrow() const;

public slots:
    void run();
    void failed(const QString &error);

private:
    const std::function<void()> &m_emission;
    bool m_hasRun = false;
    QString m_scriptError;
    std::exception_ptr m_failure;
};
