#pragma once

#include "bridge/mediator/JS_Mediator_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Page.h"
#include "plugin/PLG_Common.h"

/// What the tool's page sees of it.
class PageToolMediator : public JS_Mediator_Page
{
    Q_OBJECT

public:
    explicit PageToolMediator(HostServices *host);

public slots:
    int windows();                 ///< asks the host
    void fail(const QString &why); ///< a failure that is made in this module
};

class PageToolDialogMediator : public JS_Mediator_ModelessPatternDialog
{
    Q_OBJECT

public:
    explicit PageToolDialogMediator(HostServices *host);

    void onOpen() override {}
    void onClose() override {}
};

/// A tool with a page in a panel and a modeless dialog, from a module of its own.
class PageTool : public PLG_Common
{
    Q_OBJECT

public:
    PageTool();
    ~PageTool() override;

    /// Another host, and a mediator for it.
    void setHost(HostServices *host) override;

    GUI_ModelessPatternDialog *createModelessPatternDialog(bool create) override;
};
