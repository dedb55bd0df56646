#include "bridge/page/AfterScript.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QWebFrame>
#include <QWebPage>
#include <QWebSettings>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

// The stack as a failure sees it: a line for this function, one for the script that calls it, then
// those that were there before. What a page has made of Error does not matter to a failure of the
// engine.
const char *const StackScript =
    "(function () { try { null.x; } catch (error) { return error.stack; } })()";
constexpr int OwnLineEnds = 1;

struct Task
{
    bool mayRun() const { return !notBefore; }

    std::function<void()> run;
    QPointer<const QObject> notBefore;
};
using Tasks = std::vector<Task>;

// Looks at the stack whenever an event loop goes on.
class Waiting : public QObject
{
public:
    Waiting()
    {
        auto *dispatcher = QAbstractEventDispatcher::instance();
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &Waiting::look);
        connect(dispatcher, &QAbstractEventDispatcher::awake, this, &Waiting::look);
    }

    void add(Task task) { m_tasks.push_back(std::move(task)); }

    void runAll() { run(std::exchange(m_tasks, {})); }

private:
    void look();
    Tasks takeReady();

    static void run(const Tasks &tasks)
    {
        for (const Task &task : tasks)
            task.run();
    }

    QWebPage m_page;
    Tasks m_tasks;
};

// Goes when the library is unloaded, after which nobody may run its code. A process that ends
// without returning to an event loop leaves the rest to the system.
struct Owner
{
    ~Owner()
    {
        isEnding = true;
        if (waiting && QCoreApplication::instance())
            waiting->runAll();
        else
            (void)waiting.release();
    }

    std::unique_ptr<Waiting> waiting;
    bool isEnding = false;
};

Owner &owner()
{
    static Owner instance;
    return instance;
}

void Waiting::look()
{
    if (std::none_of(m_tasks.cbegin(), m_tasks.cend(), std::mem_fn(&Task::mayRun)))
        return;
    if (AfterScript::isScriptRunning(m_page.mainFrame()))
        return;
    const Tasks ready = takeReady();
    const auto self =
        m_tasks.empty() ? std::move(owner().waiting) : nullptr; // a task may wait anew
    run(ready);
}

Tasks Waiting::takeReady()
{
    const auto rest =
        std::stable_partition(m_tasks.begin(), m_tasks.end(), std::mem_fn(&Task::mayRun));
    const Tasks ready(m_tasks.begin(), rest);
    m_tasks.erase(m_tasks.begin(), rest);
    return ready;
}

}

namespace AfterScript {

bool isScriptRunning(QWebFrame *frame)
{
    if (!frame) {
        QWebPage page;
        return isScriptRunning(page.mainFrame());
    }
    const QVariant stack = frame->evaluateJavaScript(QLatin1String(StackScript));
    if (stack.type() != QVariant::String) // no script, or no room for any more
        return frame->page()->settings()->testAttribute(QWebSettings::JavascriptEnabled);
    return stack.toString().count(QLatin1Char('\n')) > OwnLineEnds;
}

void run(const std::function<void()> &task, const QObject *notBefore)
{
    auto &waiting = owner().waiting;
    if (!waiting)
        waiting = std::make_unique<Waiting>();
    waiting->add({task, notBefore});
}

bool isEnding()
{
    return owner().isEnding;
}

}
