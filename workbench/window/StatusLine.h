#pragma once

#include <QStatusBar>

class QLabel;
class StandInHost;

/// The states that hold for the whole window: mode, lock, current document, held live pictures.
class StatusLine : public QStatusBar
{
    Q_OBJECT

public:
    /// The host outlives the line.
    explicit StatusLine(StandInHost &host, QWidget *parent = nullptr);

    void refresh();

    QString lockText() const;
    QString modeText() const;

private:
    StandInHost &m_host;
    QLabel *m_document;
    QLabel *m_lock;
    QLabel *m_mode;
};
