#pragma once

#include "workbench/log/LogEntry.h"

#include <QList>
#include <QObject>

/// Takes a copy of every line of the message log while it lives; the line then goes where it went
/// before. One of them at a time.
///
/// Lines come from any thread. They wait here, the latest `limit` of them, until take() fetches
/// them.
class LogRecorder : public QObject
{
    Q_OBJECT

public:
    explicit LogRecorder(int limit, QObject *parent = nullptr);
    ~LogRecorder() override;

    /// The lines since the last call, in order. Any thread.
    QList<LogEntry> take();

signals:
    /// There are lines to take. Comes from the event loop of the recorder's thread, once until
    /// take().
    void recorded();
};
