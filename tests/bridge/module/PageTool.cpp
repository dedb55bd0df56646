#include "PageTool.h"

#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/operation/FileChoice.h"
#include "contract/HostGuard.h"
#include "foundation/exceptions/APP_Exception.h"

PageToolMediator::PageToolMediator(HostServices *host)
    : JS_Mediator_Page(host, QLatin1String("t_page"))
{
}

int PageToolMediator::windows()
{
    return guarded(host(), -1, [&] { return host()->countMdiWindow(true, 2); });
}

void PageToolMediator::fail(const QString &why)
{
    guarded(host(), [&] { throw APP_Exception(why, 3); });
}

PageToolDialogMediator::PageToolDialogMediator(HostServices *host)
    : JS_Mediator_ModelessPatternDialog(host, QLatin1String("pattern"))
{
}

PageTool::PageTool()
{
    m_toolName = QLatin1String("t_page");
    m_hasPanel = true;
    // This copy of the toolkit asks for files by itself.
    FileChoice::setAnswer(
        [](const FileChoice::Question &) { return QStringList(QLatin1String("/o/s.zip")); });
}

PageTool::~PageTool()
{
    FileChoice::setAnswer(FileChoice::Answer());
}

void PageTool::setHost(HostServices *host)
{
    PLG_Common::setHost(host);
    m_mediator = std::make_unique<PageToolMediator>(host);
}

GUI_ModelessPatternDialog *PageTool::createModelessPatternDialog(bool)
{
    return new GUI_ModelessPatternDialog(m_host, QLatin1String("Pattern"),
                                         QLatin1String("qrc:/t_page.html"),
                                         new PageToolDialogMediator(m_host), nullptr);
}

extern "C" Q_DECL_EXPORT PLG_Interface *makeButtonPlugin()
{
    return new PageTool;
}
