#include "device/control/JS_Mediator_DeviceControl.h"

#include "bridge/mediator/OperationEventHandler.h"
#include "bridge/operation/DialogRun.h"
#include "bridge/operation/OperationLog.h"
#include "bridge/operation/OwnedDialog.h"
#include "bridge/operation/UndoMacroScope.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/PLG_Interface.h"
#include "contract/ViewPauseGuard.h"
#include "device/list/DocumentSelection.h"
#include "foundation/LogGroups.h"
#include "record/comment/GUI_CommentDialog.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "record/info/GUI_CustomInfoDialog.h"

#include <QWebFrame>
#include <QWebPage>

namespace {

QString keyGroup(const QVariant &key)
{
    return LogGroups::group(QLatin1String("key"), key);
}

template <typename Make> void runDialog(HostServices *host, Make make)
{
    guarded(host, [&] {
        const OwnedDialog dialog(make());
        DialogRun::exec(*dialog);
    });
}

}

JS_Mediator_DeviceControl::JS_Mediator_DeviceControl(HostServices *host, const QString &name)
    : JS_Mediator_Plugin(host, name)
{
}

JS_Mediator_DeviceControl::~JS_Mediator_DeviceControl()
{
    endMacros();
}

QString JS_Mediator_DeviceControl::name()
{
    return pageName();
}

QString JS_Mediator_DeviceControl::uiName()
{
    return guarded(host(), QString(), [this] { return host()->translate(pageName()); });
}

void JS_Mediator_DeviceControl::onOpen()
{
    withTool([](PLG_Interface *tool) { tool->update(); });
}

void JS_Mediator_DeviceControl::onApply()
{
    operateTool("JS_Mediator_DeviceControl::onApply",
                [](PLG_Interface *tool) { tool->applyGuarded(true); });
}

void JS_Mediator_DeviceControl::onOK()
{
    operateTool("JS_Mediator_DeviceControl::onOK", [](PLG_Interface *tool) { tool->onOk(); });
}

void JS_Mediator_DeviceControl::onCancel()
{
    operateTool("JS_Mediator_DeviceControl::onCancel",
                [](PLG_Interface *tool) { tool->onCancel(); });
}

void JS_Mediator_DeviceControl::onReset()
{
    operateTool("JS_Mediator_DeviceControl::onReset",
                [](PLG_Interface *tool) { tool->resetGuarded(true); });
}

void JS_Mediator_DeviceControl::onClose()
{
    withTool([](PLG_Interface *tool) { tool->hideDialog(); });
}

void JS_Mediator_DeviceControl::onClosed()
{
    HostServices *services = host();
    const QString tool = pageName(); // a call of the host may end the mediator
    withTool([&](PLG_Interface *) { services->closePluginByName(tool); });
}

void JS_Mediator_DeviceControl::undo()
{
    HostServices *services = host();
    OperationEventHandler operation(this, QLatin1String("JS_Mediator_DeviceControl::undo"));
    guarded(services, [&] { services->undo(); });
}

void JS_Mediator_DeviceControl::redo()
{
    HostServices *services = host();
    OperationEventHandler operation(this, QLatin1String("JS_Mediator_DeviceControl::redo"));
    guarded(services, [&] { services->redo(); });
}

void JS_Mediator_DeviceControl::beginMacro()
{
    if (GUI_WebView *view = webView()) {
        connect(view->page()->mainFrame(), &QWebFrame::javaScriptWindowObjectCleared, this,
                &JS_Mediator_DeviceControl::endMacros, Qt::UniqueConnection);
    }
    HostServices *services = host();
    QPointer<JS_Mediator_DeviceControl> self(this);
    guarded(services, [&] {
        auto macro = std::make_unique<UndoMacroScope>(services);
        if (self)
            m_macros.push_back(std::move(macro));
    });
}

void JS_Mediator_DeviceControl::endMacro()
{
    if (m_macros.empty())
        return;
    const std::unique_ptr<UndoMacroScope> ended = std::move(m_macros.back());
    m_macros.pop_back();
}

bool JS_Mediator_DeviceControl::isCurrentDummy()
{
    HostServices *services = host();
    return guarded(services, false, [&] {
        DOC_Interface *doc = services->currentDocument();
        return doc && doc->isDummy();
    });
}

QString JS_Mediator_DeviceControl::getCurrentWindowTitle()
{
    return guarded(host(), QString(), [this] { return host()->currentWindowTitle(); });
}

bool JS_Mediator_DeviceControl::isDisplayInfoShowing()
{
    return guarded(host(), false, [this] { return host()->isDisplayInfoShowing(); });
}

void JS_Mediator_DeviceControl::setDisplayInfoShowing(bool show)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DeviceControl::setDisplayInfoShowing"),
                            LogGroups::group(QLatin1String("show"), show));
    guarded(host(), [&] { host()->setDisplayInfoShowing(show); });
}

void JS_Mediator_DeviceControl::editInfo()
{
    HostServices *services = host(); // the mediator may go while the user edits
    runDialog(services, [&] { return new GUI_EditInfoDialog(services); });
}

void JS_Mediator_DeviceControl::editComment()
{
    HostServices *services = host();
    runDialog(services, [&] { return new GUI_CommentDialog(services); });
}

void JS_Mediator_DeviceControl::editCustom()
{
    HostServices *services = host();
    const GUI_WebView *view = webView();
    runDialog(services, [&] {
        return new GUI_CustomInfoDialog(services, view ? view->window() : nullptr, false);
    });
}

void JS_Mediator_DeviceControl::selectDoc(const QVariant &key)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DeviceControl::selectDoc"), keyGroup(key));
    HostServices *services = host(); // a call of the host may end the mediator
    guarded(services, [&] {
        services->prepareSelectAll();
        const DOCKEY docKey = DocumentSelection::keyOf(key);
        ViewPauseGuard pause(services, false, false);
        DOC_Interface *doc = DocumentSelection::selectable(services, docKey);
        if (!doc)
            return;
        UndoMacroScope macro(services);
        DocumentSelection::select(services, doc, docKey);
        DocumentSelection::selectGroup(services, doc);
    });
}

void JS_Mediator_DeviceControl::unselectDoc(const QVariant &key)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DeviceControl::unselectDoc"), keyGroup(key));
    HostServices *services = host();
    guarded(services, [&] {
        services->prepareSelectAll();
        const DOCKEY docKey = DocumentSelection::keyOf(key);
        ViewPauseGuard pause(services, false, false);
        DOC_Interface *doc = services->deviceByKey(docKey, true);
        UndoMacroScope macro(services);
        services->unselectDoc(docKey);
        if (doc)
            DocumentSelection::unselectGroup(services, doc);
    });
}

void JS_Mediator_DeviceControl::viewAll()
{
    HostServices *services = host();
    QPointer<JS_Mediator_DeviceControl> self(this);
    guarded(services, [&] {
        services->prepareSelectAll();
        if (self)
            services->selectAllDocs(self);
        services->showAllDocuments();
    });
}

template <typename Work> void JS_Mediator_DeviceControl::withTool(Work work)
{
    HostServices *services = host();
    guarded(services, [&] {
        if (PLG_Interface *tool = services->pluginByName(pageName()))
            work(tool);
    });
}

template <typename Work> void JS_Mediator_DeviceControl::operateTool(const char *trace, Work work)
{
    OperationEventHandler operation(this, QLatin1String(trace));
    withTool(work);
}

// The inner ones end before those around them. A call of the host may end the mediator meanwhile.
void JS_Mediator_DeviceControl::endMacros()
{
    std::vector<std::unique_ptr<UndoMacroScope>> ended;
    ended.swap(m_macros);
    while (!ended.empty())
        ended.pop_back();
}
