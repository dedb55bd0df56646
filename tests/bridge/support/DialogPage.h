#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"

/// A host with a shown dialog whose page "calls.html" has a mediator under the name "bridge".
struct DialogPage
{
    explicit DialogPage(const QString &url = QStringLiteral("qrc:/pages/calls.html"))
        : mediator(new JS_Mediator_Dialog(&host, QStringLiteral("bridge"))),
          dialog(&host, QStringLiteral("Calls"), url, mediator, nullptr), page(dialog.webView())
    {
        host.settings().declare({"a/b"}); // what tests store and read
        dialog.resize(400, 300);
        dialog.show();
        loaded = page.waitLoaded();
        host.clearJournal();
    }

    StandInHost host;
    JS_Mediator_Dialog *mediator; ///< owned by the dialog
    GUI_WebViewDialog dialog;
    PageProbe page;
    bool loaded = false;
};
