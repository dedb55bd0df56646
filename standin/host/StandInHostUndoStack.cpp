#include "standin/host/StandInHost.h"

void StandInHost::clearUndoStack()
{
    told("clearUndoStack");
    m_undo.clear();
}

bool StandInHost::canUndo()
{
    asked("canUndo");
    return m_undo.steps().canUndo();
}

bool StandInHost::canRedo()
{
    asked("canRedo");
    return m_undo.steps().canRedo();
}

void StandInHost::beginUndoMacro(const QString &text)
{
    auto failed = qScopeGuard([&] { m_undo.macros().beginFailed(); });
    told("beginUndoMacro", text);
    failed.dismiss();
    m_undo.beginMacro(text);
}

void StandInHost::endUndoMacro()
{
    told("endUndoMacro");
    m_undo.endMacro();
}

void StandInHost::undo()
{
    told("undo");
    m_undo.steps().undo();
}

void StandInHost::redo()
{
    told("redo");
    m_undo.steps().redo();
}
