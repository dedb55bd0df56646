#include "bridge/GUI_WebPage.h"

GUI_WebPage::GUI_WebPage(HostServices *host, QObject *parent) : QWebPage(parent), m_host(host) {}

void GUI_WebPage::javaScriptConsoleMessage(const QString &, int, const QString &) {}
