#include "workbench/log/LogRecorder.h"

#include <QMutex>
#include <QMutexLocker>

namespace {

// The message handler is one function for the process, and other threads may be inside of it while
// the recorder goes away: what it uses is not the recorder's.
QMutex mutex;
LogRecorder *recorder = nullptr;
QtMessageHandler previousHandler = nullptr;
QList<LogEntry> waiting;
int waitingLimit = 0;
bool announced = false;

void record(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    QtMessageHandler previous = nullptr;
    {
        QMutexLocker locker(&mutex);
        previous = previousHandler;
        if (recorder) {
            waiting.append({QDateTime::currentDateTime(), type, text});
            if (waiting.size() > waitingLimit)
                waiting.removeFirst();
            if (!announced)
                QMetaObject::invokeMethod(recorder, &LogRecorder::recorded, Qt::QueuedConnection);
            announced = true;
        }
    }
    if (previous)
        previous(type, context, text);
}

}

LogRecorder::LogRecorder(int limit, QObject *parent) : QObject(parent)
{
    QMutexLocker locker(&mutex);
    Q_ASSERT(!recorder);
    recorder = this;
    waiting.clear();
    waitingLimit = qMax(1, limit);
    announced = false;
    previousHandler = qInstallMessageHandler(record);
}

LogRecorder::~LogRecorder()
{
    QMutexLocker locker(&mutex);
    qInstallMessageHandler(previousHandler);
    recorder = nullptr;
    waiting.clear();
}

QList<LogEntry> LogRecorder::take()
{
    QMutexLocker locker(&mutex);
    QList<LogEntry> taken;
    taken.swap(waiting);
    announced = false;
    return taken;
}
