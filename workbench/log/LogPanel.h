#pragma once

#include <QWidget>

class LogFilter;
class LogModel;
class QTreeView;

/// The log lines with their filters: level, text, clear; the newest line stays in view while the
/// user has not scrolled up.
class LogPanel : public QWidget
{
    Q_OBJECT

public:
    /// Shows the model, which lives as long as the panel.
    explicit LogPanel(LogModel *model, QWidget *parent = nullptr);

    /// The lines that pass the filters, as they stand in the columns.
    QStringList visibleLines() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void fitColumns();
    void copySelected();

    LogModel *m_model;
    LogFilter *m_filter;
    QTreeView *m_view;
};
