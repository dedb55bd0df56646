#include "workbench/log/LogModel.h"

LogModel::LogModel(int limit, QObject *parent) : QAbstractTableModel(parent), m_limit(limit) {}

void LogModel::append(const QList<LogEntry> &entries)
{
    const QList<LogEntry> added = entries.mid(qMax(0, entries.size() - m_limit));
    if (added.isEmpty())
        return;
    const int surplus = m_entries.size() + added.size() - m_limit;
    if (surplus > 0) {
        beginRemoveRows(QModelIndex(), 0, surplus - 1);
        m_entries.erase(m_entries.begin(), m_entries.begin() + surplus);
        endRemoveRows();
    }
    beginInsertRows(QModelIndex(), m_entries.size(), m_entries.size() + added.size() - 1);
    m_entries.append(added);
    endInsertRows();
}

void LogModel::clear()
{
    beginResetModel();
    m_entries.clear();
    endResetModel();
}

QString LogModel::text() const
{
    QString text;
    for (const LogEntry &entry : m_entries)
        text += entry.time.toString("HH:mm:ss.zzz ") + levelName(levelOf(entry.type)) + ' ' +
                entry.text + '\n';
    return text;
}

int LogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int LogModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant LogModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_entries.size())
        return QVariant();
    const LogEntry &entry = m_entries.at(index.row());
    const int level = levelOf(entry.type);
    if (role == LevelRole)
        return level;
    if (role == Qt::ToolTipRole && index.column() == Text)
        return entry.text;
    if (role != Qt::DisplayRole)
        return QVariant();
    switch (index.column()) {
    case Time:
        return entry.time.toString("HH:mm:ss.zzz");
    case Level:
        return levelName(level);
    case Text:
        return entry.text.simplified();
    default:
        return QVariant();
    }
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    static const char *const titles[] = {"Time", "Level", "Text"};
    return section >= 0 && section < ColumnCount ? QVariant(titles[section]) : QVariant();
}
