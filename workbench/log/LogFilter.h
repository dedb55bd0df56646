#pragma once

#include <QSortFilterProxyModel>

/// The lines of a LogModel from a level on that hold a text.
class LogFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit LogFilter(QObject *parent = nullptr);

    /// Least serious level that is shown; 0 shows all.
    void setLevel(int level);

    /// Text that a line holds, in any case; empty shows all.
    void setText(const QString &text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    int m_level = 0;
    QString m_text;
};
