#include "standin/host/StandInHost.h"

void StandInHost::clearUndoStack()
{
    told("clearUndoStack");
    m_clearedMacros += m_openMacros;
    m_openMacros = 0;
    m_undo.clear();
}

bool StandInHost::canUndo()
{
    asked("canUndo");
    return m_undo.canUndo();
}

bool StandInHost::canRedo()
{
    asked("canRedo");
    return m_undo.canRedo();
}

void StandInHost::beginUndoMacro(const QString &text)
{
    told("beginUndoMacro", text);
    ++m_openMacros;
    m_undo.beginMacro(text);
}

void StandInHost::endUndoMacro()
{
    told("endUndoMacro");
    if (m_openMacros == 0 && m_clearedMacros > 0) {
        --m_clearedMacros;
        return;
    }
    if (m_openMacros > 0)
        --m_openMacros;
    m_undo.endMacro(); // warns when there is none
}

void StandInHost::undo()
{
    told("undo");
    m_undo.undo();
}

void StandInHost::redo()
{
    told("redo");
    m_undo.redo();
}
