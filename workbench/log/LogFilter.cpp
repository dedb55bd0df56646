#include "workbench/log/LogFilter.h"

#include "workbench/log/LogModel.h"

LogFilter::LogFilter(QObject *parent) : QSortFilterProxyModel(parent) {}

void LogFilter::setLevel(int level)
{
    m_level = level;
    invalidateFilter();
}

void LogFilter::setText(const QString &text)
{
    m_text = text;
    invalidateFilter();
}

bool LogFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QModelIndex line = sourceModel()->index(row, LogModel::Text, parent);
    return line.data(LogModel::LevelRole).toInt() >= m_level &&
           line.data().toString().contains(m_text, Qt::CaseInsensitive);
}
