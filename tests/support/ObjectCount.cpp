#include "tests/support/ObjectCount.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWebSettings>

#include <atomic>

// The toolkit tells of each object that is made and that goes, for tools that look into a process.
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace {

constexpr int HookForNew = 3;
constexpr int HookForGone = 4;

std::atomic<int> liveObjects{0};

void countNew(QObject *)
{
    ++liveObjects;
}

void countGone(QObject *)
{
    --liveObjects;
}

}

ObjectCount::ObjectCount()
{
    liveObjects = 0;
    qtHookData[HookForNew] = reinterpret_cast<quintptr>(&countNew);
    qtHookData[HookForGone] = reinterpret_cast<quintptr>(&countGone);
}

ObjectCount::~ObjectCount()
{
    qtHookData[HookForNew] = 0;
    qtHookData[HookForGone] = 0;
}

int ObjectCount::live() const
{
    return liveObjects.load();
}

void ObjectCount::settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QWebSettings::clearMemoryCaches();
}
