#pragma once

#include <QStyledItemDelegate>

/// Colours a log line by its level, readable on the view's own background.
class LogLineDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit LogLineDelegate(QObject *parent = nullptr);

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
