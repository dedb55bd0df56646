#pragma once

#include "workbench/log/LogEntry.h"

#include <QAbstractTableModel>
#include <QList>

/// The latest lines of the message log, the oldest first.
class LogModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Time, Level, Text, ColumnCount };

    /// levelOf() of the line; in every column.
    static constexpr int LevelRole = Qt::UserRole;

    /// A model of at most `limit` lines.
    explicit LogModel(int limit, QObject *parent = nullptr);

    /// Adds lines at the end, and drops the oldest above the limit.
    void append(const QList<LogEntry> &entries);

    void clear();

    /// All lines: time, level, text.
    QString text() const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    int m_limit;
    QList<LogEntry> m_entries;
};
