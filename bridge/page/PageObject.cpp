#include "bridge/page/PageObject.h"

#include "bridge/page/AfterScript.h"
#include "bridge/page/PageHandlers.h"

#include <QPointer>
#include <QThread>

void PageObject::remove(PageObject *object)
{
    if (!object)
        return;
    // What was called in an event loop that has ended has returned: a dialog that ran its own loop
    // goes with its mediators, also under the script that opened it.
    const bool mayBeCalled = object->m_callLevel >= 0 &&
                             object->m_callLevel <= QThread::currentThread()->loopLevel() &&
                             AfterScript::isScriptRunning(PageHandlers::frameOf(object));
    if (!mayBeCalled)
        delete object;
    else
        AfterScript::run([left = QPointer<PageObject>(object)] { delete left; });
}

int PageObject::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    const int level = QThread::currentThread()->loopLevel();
    if (m_callLevel < 0 || level < m_callLevel)
        m_callLevel = level;
    return PageProof::qt_metacall(call, id, arguments);
}
