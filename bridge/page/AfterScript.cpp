#include "bridge/page/AfterScript.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QWebFrame>
#include <QWebPage>
#include <QWebSettings>

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

using Tasks = std::vector<std::function<void()>>;

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

    void add(const std::function<void()> &task) { m_tasks.push_back(task); }

    void runAll()
    {
        for (const auto &task : std::exchange(m_tasks, {}))
            task();
    }

private:
    void look();

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
    if (AfterScript::isScriptRunning(m_page.mainFrame()))
        return;
    const auto self = std::move(owner().waiting); // a task may wait anew
    runAll();
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

void run(const std::function<void()> &task)
{
    auto &waiting = owner().waiting;
    if (!waiting)
        waiting = std::make_unique<Waiting>();
    waiting->add(task);
}

bool isEnding()
{
    return owner().isEnding;
}

}
