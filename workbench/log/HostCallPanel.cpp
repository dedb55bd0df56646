#include "workbench/log/HostCallPanel.h"

#include "standin/host/StandInHost.h"
#include "workbench/base/Look.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

HostCallPanel::HostCallPanel(StandInHost &host, QWidget *parent)
    : QWidget(parent), m_host(host), m_text(new QPlainTextEdit(this))
{
    m_text->setObjectName("hostCalls");
    m_text->setAccessibleName(tr("Host calls"));
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setUndoRedoEnabled(false);
    m_text->setMaximumBlockCount(MaximumLines);
    m_text->setFont(Look::fixedFont(font()));
    m_text->setPlaceholderText(tr("What a tool tells the host stands here, such as "
                                  "setTrelvikLock(true)."));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_text);
}

void HostCallPanel::collect()
{
    const QStringList calls = m_host.commands();
    m_host.clearJournal();
    for (const QString &call : calls)
        m_text->appendPlainText(call);
}

QStringList HostCallPanel::lines() const
{
    return m_text->toPlainText().split('\n', Qt::SkipEmptyParts);
}
