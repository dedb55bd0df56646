#pragma once

#include <QObject>

class QAction;
class QMenu;
class StandInDocument;
class StandInHost;

/// Two entries of the menu "Cameras": the selected cameras become a group, which a page of the
/// devices selects together, and the groups of the selected cameras are undone. A group that has
/// lost all its cameras goes.
class GroupActions : public QObject
{
    Q_OBJECT

public:
    /// The entries come behind those of the menu. The host outlives it.
    GroupActions(StandInHost &host, QMenu &menu, QObject *parent);

private:
    QAction *add(QMenu &menu, const char *name, const QString &text,
                 void (GroupActions::*action)());
    void refresh();
    void closeEmptyGroups();
    void group();
    void ungroup();
    QList<StandInDocument *> selectedCameras() const;
    QList<StandInDocument *> groupsOf(const QList<StandInDocument *> &cameras) const;

    StandInHost &m_host;
    QAction *m_group;
    QAction *m_ungroup;
};
