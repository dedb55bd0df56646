#include "bridge/page/GUI_WebPage.h"

#include "bridge/page/AfterScript.h"
#include "bridge/page/EmbeddedWidgets.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"

#include <QHash>
#include <QWebSettings>
#include <QWidget>

namespace {

// Which plug-in brings the widget that a page names. Pages spell the last one exactly so.
QHash<QString, QString> makePluginNames()
{
    return {{QLatin1String("histogram"), Keys::tools.histogram},
            {QLatin1String("lineprofile"), Keys::tools.lineProfile},
            {QLatin1String("lut"), Keys::tools.lut},
            {QLatin1String("sensorlut"), Keys::tools.sensorLut},
            {QLatin1String("livecontrol_hwimage_trigger_histogram"), Keys::tools.liveControl},
            {QLatin1String("livecontrol_auto_exposure_histogram"), Keys::tools.liveControl},
            {QLatin1String("imagetrigger_histogram"), Keys::tools.imageTrigger},
            {QLatin1String("analoggain"), Keys::tools.analogGain},
            {QLatin1String("focuscheck"), Keys::tools.focusCheck},
            {QLatin1String("colorcorrection_histgram"), Keys::tools.colorCorrection}};
}

QString pluginOf(const QString &classid)
{
    static const QHash<QString, QString> names = makePluginNames();
    return names.value(classid);
}

}

GUI_WebPage::GUI_WebPage(HostServices *host, QObject *parent)
    : QWebPage(parent), m_host(host), m_embedded(new EmbeddedWidgets(this))
{
    // Before anybody else hears of it.
    connect(this, &QWebPage::loadStarted, this, &GUI_WebPage::tell);
    connect(this, &QWebPage::loadProgress, this, &GUI_WebPage::tell);
    connect(this, &QWebPage::loadFinished, this, &GUI_WebPage::tell);
}

// A page that goes while it loads still tells of that.
GUI_WebPage::~GUI_WebPage()
{
    disconnect(this, nullptr, this, nullptr);
}

// What is deleted later goes when the event loop goes on that runs now, not one that a slot runs.
void GUI_WebPage::tell()
{
    m_telling = new QObject(this);
    m_telling->deleteLater();
}

void GUI_WebPage::outliveView()
{
    m_outlivesView = true;
    m_embedded->leaveView();
    settings()->setAttribute(QWebSettings::JavascriptEnabled, false);
    setParent(nullptr);
    goLater();
}

// By a task, which runs before this library is unloaded, and not by an event, which would come to a
// page whose code has gone.
void GUI_WebPage::goLater()
{
    const auto go = [page = QPointer<GUI_WebPage>(this)] {
        if (page && page->m_telling && !AfterScript::isEnding())
            page->goLater();
        else
            delete page;
    };
    AfterScript::run(go, m_telling);
}

QObject *GUI_WebPage::createPlugin(const QString &classid, const QUrl &, const QStringList &,
                                   const QStringList &)
{
    if (m_outlivesView)
        return nullptr;
    QObject *object =
        guarded(m_host, static_cast<QObject *>(nullptr), [&] { return hostWidget(classid); });
    if (auto *widget = qobject_cast<QWidget *>(object))
        m_embedded->add(widget, classid);
    return object;
}

void GUI_WebPage::javaScriptConsoleMessage(const QString &, int, const QString &) {}

QObject *GUI_WebPage::hostWidget(const QString &classid)
{
    if (classid == QLatin1String("mdi"))
        return m_host->webPageEmbeddedMdi();
    const QString name = pluginOf(classid);
    if (name.isEmpty())
        return nullptr;
    PLG_Interface *plugin = m_host->pluginByName(name);
    if (!plugin)
        return nullptr;
    m_host->prepareEmbeddedWidget(plugin, classid);
    return m_host->embeddedWidget(plugin);
}
