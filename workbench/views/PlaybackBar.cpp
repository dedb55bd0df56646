#include "workbench/views/PlaybackBar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>

#include <limits>

PlaybackBar::PlaybackBar(QWidget *parent)
    : QWidget(parent), m_play(new QToolButton(this)), m_toggle(new QAction(this)),
      m_slider(new QSlider(Qt::Horizontal, this)), m_label(new QLabel(this))
{
    m_play->setObjectName("play");
    m_play->setCheckable(true);
    m_play->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_toggle->setShortcut(QKeySequence("Ctrl+Space"));
    addAction(m_toggle);
    m_play->setFocusPolicy(Qt::StrongFocus);
    m_slider->setObjectName("frame");
    m_slider->setAccessibleName(tr("Frame"));
    m_slider->setPageStep(10);
    m_label->setObjectName("framePosition");
    m_label->setMinimumWidth(m_label->fontMetrics().horizontalAdvance("Frame 000000 of 000000"));

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->addWidget(m_play);
    layout->addWidget(m_slider, 1);
    layout->addWidget(m_label);

    connect(m_slider, &QSlider::valueChanged, this,
            [this](int value) { emit frameChosen(quint64(value)); });
    connect(m_play, &QToolButton::clicked, this, &PlaybackBar::playRequested);
    connect(m_toggle, &QAction::triggered, m_play, [this] { m_play->click(); });
    setPlaying(false);
    setPosition(0, 0);
}

void PlaybackBar::setPosition(quint64 frame, quint64 count)
{
    const QSignalBlocker quiet(m_slider);
    constexpr quint64 most = quint64(std::numeric_limits<int>::max());
    m_slider->setRange(0, int(qMin(most, count > 0 ? count - 1 : 0)));
    m_slider->setValue(int(qMin(most, frame)));
    m_label->setText(
        count == 0 ? tr("No frame")
                   : tr("Frame %1 of %2").arg(QString::number(frame + 1), QString::number(count)));
    setEnabled(count > 0);
}

bool PlaybackBar::isPlaying() const
{
    return m_play->isChecked();
}

void PlaybackBar::setPlaying(bool playing)
{
    m_play->setChecked(playing);
    m_play->setText(playing ? tr("Stop") : tr("Play"));
    m_play->setToolTip((playing ? tr("Stop playing") : tr("Play the recording")) + " (" +
                       m_toggle->shortcut().toString(QKeySequence::NativeText) + ")");
}
