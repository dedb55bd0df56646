#include "workbench/window/GroupActions.h"

#include "bridge/operation/OperationLog.h"
#include "standin/host/StandInHost.h"

#include <QAction>
#include <QMenu>
#include <QStringList>

#include <algorithm>

GroupActions::GroupActions(StandInHost &host, QMenu &menu, QObject *parent)
    : QObject(parent), m_host(host),
      m_group(add(menu, "group", tr("&Group selected cameras"), &GroupActions::group)),
      m_ungroup(add(menu, "ungroup", tr("Ungr&oup selected cameras"), &GroupActions::ungroup))
{
    menu.addSeparator();
    const StandInEvents *events = m_host.events();
    connect(events, &StandInEvents::documentsChanged, this, [this] {
        closeEmptyGroups();
        refresh();
    });
    connect(events, &StandInEvents::selectionChanged, this, &GroupActions::refresh);
    refresh();
}

QAction *GroupActions::add(QMenu &menu, const char *name, const QString &text,
                           void (GroupActions::*action)())
{
    QAction *added = menu.addAction(text);
    added->setObjectName(name);
    connect(added, &QAction::triggered, this, [this, added, action] {
        OperationLog::userOperation("MainWindow", "clicked", "Action", added->objectName(),
                                    QString(), QVariant());
        (this->*action)();
    });
    return added;
}

void GroupActions::refresh()
{
    const QList<StandInDocument *> cameras = selectedCameras();
    m_group->setEnabled(cameras.size() > 1);
    m_ungroup->setEnabled(!groupsOf(cameras).isEmpty());
}

void GroupActions::closeEmptyGroups()
{
    for (const StandInDocument *document : m_host.documents()) {
        if (document->standsForGroup() && document->members().isEmpty())
            m_host.closeDocument(document->key());
    }
}

// A camera is part of one group: the groups that it was part of before go.
void GroupActions::group()
{
    ungroup();
    const QList<StandInDocument *> cameras = selectedCameras();
    QStringList names;
    for (const StandInDocument *camera : cameras)
        names.append(camera->state().cameraName);
    m_host.addGroup(names.join(QStringLiteral(", ")), cameras);
}

void GroupActions::ungroup()
{
    const QList<StandInDocument *> groups = groupsOf(selectedCameras());
    for (const StandInDocument *group : groups)
        m_host.closeDocument(group->key());
}

// In the order of the list.
QList<StandInDocument *> GroupActions::selectedCameras() const
{
    QList<StandInDocument *> cameras;
    const QList<DOCKEY> selection = m_host.selection();
    for (StandInCamera *camera : m_host.cameras()) {
        if (selection.contains(camera->key()))
            cameras.append(camera);
    }
    return cameras;
}

QList<StandInDocument *> GroupActions::groupsOf(const QList<StandInDocument *> &cameras) const
{
    QList<StandInDocument *> groups;
    for (StandInDocument *document : m_host.documents()) {
        const QList<StandInDocument *> members = document->members();
        if (std::any_of(members.begin(), members.end(),
                        [&](StandInDocument *member) { return cameras.contains(member); }))
            groups.append(document);
    }
    return groups;
}
