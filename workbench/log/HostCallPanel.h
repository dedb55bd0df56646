#pragma once

#include <QWidget>

class QPlainTextEdit;
class StandInHost;

/// What the host was told, a call a line: what a tool developer wants to see. The pure questions
/// are left out, and only the latest lines are kept.
class HostCallPanel : public QWidget
{
    Q_OBJECT

public:
    static constexpr int MaximumLines = 5000;

    /// The host outlives the panel.
    explicit HostCallPanel(StandInHost &host, QWidget *parent = nullptr);

    /// Moves the calls of the host's journal into the panel.
    void collect();

    QStringList lines() const;

private:
    StandInHost &m_host;
    QPlainTextEdit *m_text;
};
