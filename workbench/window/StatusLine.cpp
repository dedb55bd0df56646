#include "workbench/window/StatusLine.h"

#include "standin/host/StandInHost.h"
#include "workbench/base/ElidingLabel.h"

#include <QLabel>

#include <algorithm>

StatusLine::StatusLine(StandInHost &host, QWidget *parent)
    : QStatusBar(parent), m_host(host), m_document(new ElidingLabel(this)),
      m_lock(new QLabel(this)), m_mode(new QLabel(this))
{
    m_document->setObjectName("statusDocument");
    m_lock->setObjectName("statusLock");
    m_mode->setObjectName("statusMode");
    for (QLabel *label : {m_document, m_lock, m_mode})
        label->setContentsMargins(8, 2, 8, 2);
    addWidget(m_document, 1);
    addPermanentWidget(m_lock);
    addPermanentWidget(m_mode);
    refresh();
}

void StatusLine::refresh()
{
    const StandInDocument *document = m_host.document(m_host.currentKey());
    m_document->setText(document ? tr("Current: %1").arg(document->state().displayName)
                                 : tr("Nothing is open"));

    const QList<StandInCamera *> cameras = m_host.cameras();
    const auto locked = std::count_if(cameras.begin(), cameras.end(), [](StandInCamera *camera) {
        return camera->isLockedTogether();
    });
    m_lock->setText(!m_host.isLockOn() ? tr("Cameras released")
                    : locked == 0      ? tr("Lock on, no camera")
                                       : tr("Cameras locked: %1").arg(locked));

    const bool held = m_host.livePauses() > 0;
    switch (m_host.mode()) {
    case StandInHost::Mode::Live:
        m_mode->setText(held ? tr("Mode: live, held") : tr("Mode: live"));
        break;
    case StandInHost::Mode::Memory:
        m_mode->setText(tr("Mode: memory"));
        break;
    case StandInHost::Mode::File:
        m_mode->setText(tr("Mode: file"));
        break;
    }
}

QString StatusLine::lockText() const
{
    return m_lock->text();
}

QString StatusLine::modeText() const
{
    return m_mode->text();
}
