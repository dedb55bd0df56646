#pragma once

#include <QObject>

#include <exception>
#include <functional>

/// Puts a script frame around an emission: a page's script calls run().
class PageSignalFrame : public QObject
{
    Q_OBJECT

public:
    explicit PageSignalFrame(const std::function<void()> &emission);

    /// Throws again what the emission threw; nothing when it did not.
    void rethrow() const;

public slots:
    /// Runs the emission, the first time only. Nothing escapes.
    void run();

private:
    const std::function<void()> &m_emission;
    bool m_hasRun = false;
    std::exception_ptr m_failure;
};
