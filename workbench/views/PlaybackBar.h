#pragma once

#include <QWidget>

class QAction;
class QLabel;
class QSlider;
class QToolButton;

/// Position in a recording: a button that plays and stops, a slider, "Frame 3 of 20". With no frame
/// it is disabled.
class PlaybackBar : public QWidget
{
    Q_OBJECT

public:
    explicit PlaybackBar(QWidget *parent = nullptr);

    /// Shows the frame with this number, from 0, of `count` frames; emits nothing.
    void setPosition(quint64 frame, quint64 count);

    bool isPlaying() const;
    void setPlaying(bool playing);

signals:
    /// The user moved the slider to this frame.
    void frameChosen(quint64 frame);

    /// The user pressed the button.
    void playRequested(bool play);

private:
    QToolButton *m_play;
    QAction *m_toggle; ///< has the shortcut: that of a button would be its window's alone
    QSlider *m_slider;
    QLabel *m_label;
};
