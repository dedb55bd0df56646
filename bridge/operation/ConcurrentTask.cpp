#include "bridge/operation/ConcurrentTask.h"

#include "contract/HostServices.h"
#include "foundation/exceptions/APP_ConcurrentException.h"

#include <QFuture>
#include <QFutureWatcher>
#include <QtConcurrent>

namespace {

// A future carries nothing but QExceptions; anything else arrives as QUnhandledException.
void runInTask(const std::function<void()> *work)
{
    try {
        (*work)();
    } catch (const APP_Exception &failure) {
        throw APP_ConcurrentException(failure);
    }
}

void waitWithProgress(HostServices *host, const QString &text, const QFuture<void> &future)
{
    QFutureWatcher<void> watcher;
    watcher.setFuture(future);
    host->runWithProgress(text, watcher);
}

// For the way out on which another failure is already under way.
void waitWithoutResult(QFuture<void> future) noexcept
{
    try {
        future.waitForFinished();
    } catch (...) {
    }
}

}

namespace ConcurrentTask {

void run(HostServices *host, const QString &text, const std::function<void()> &work)
{
    QFuture<void> future = QtConcurrent::run(runInTask, &work);
    try {
        waitWithProgress(host, text, future);
        future.waitForFinished();
    } catch (const APP_ConcurrentException &failure) {
        waitWithoutResult(future);
        throw APP_Exception(failure.inner());
    } catch (...) {
        waitWithoutResult(future);
        throw;
    }
}

}
