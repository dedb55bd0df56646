#include "bridge/mediator/JS_Mediator.h"

#include "bridge/mediator/OperationEventHandler.h"
#include "bridge/operation/DeterUpdateScope.h"
#include "bridge/operation/OperationLog.h"
#include "bridge/page/GUI_WebView.h"
#include "bridge/page/PageHandlers.h"
#include "bridge/page/PageTypes.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/ViewPauseGuard.h"
#include "foundation/Keys.h"
#include "foundation/Theme.h"

#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QWebFrame>
#include <QWebPage>
#include <QtDebug>

#include <algorithm>
#include <cmath>
#include <limits>

// State, messages and tools.

namespace {

constexpr int CountForPages = 2;
constexpr int FullRangeBits = 8;
constexpr double DegreesPerTurn = 360.0;

// Answers of the current document, false without one.
template <typename Ask> bool askCurrentDocument(HostServices *host, Ask ask)
{
    return guarded(host, false, [&] {
        DOC_Interface *doc = host->currentDocument();
        return doc && ask(doc);
    });
}

uint maximumOfBits(int bits)
{
    const double maximum = std::pow(2.0, bits) - 1.0;
    constexpr double most = double(std::numeric_limits<uint>::max());
    return uint(std::clamp(maximum, 0.0, most));
}

}

JS_Mediator::JS_Mediator(HostServices *host, const QString &name) : m_host(host), m_name(name)
{
    registerPageTypes();
    setObjectName(name);
}

JS_Mediator::~JS_Mediator() = default;

GUI_WebView *JS_Mediator::webView() const
{
    return static_cast<GUI_WebView *>(m_webView.data());
}

void JS_Mediator::setWebView(GUI_WebView *view)
{
    m_webView = view;
    if (view)
        PageHandlers::guard(view->page()->mainFrame(), this);
}

void JS_Mediator::setStyle(const QString &style)
{
    HostServices *host = m_host;
    OperationEventHandler operation(this, QLatin1String("JS_Mediator::setStyle"));
    guarded(host, [&] {
        host->setPref(Keys::application.style, style);
        QWidget *main = host->mainWidget();
        if (!main)
            return;
        if (auto *dialog = main->findChild<QDialog *>(QLatin1String("GUI_MobileDialog")))
            Theme::applyNativeStyle(host, dialog);
    });
}

QString JS_Mediator::getStyle()
{
    return guarded(m_host, QString(), [&] {
        return m_host->getPrefString(Keys::application.style, QVariant(QLatin1String("light")));
    });
}

void JS_Mediator::openPlugin(const QString &name)
{
    HostServices *host = m_host;
    OperationEventHandler operation(this, QLatin1String("JS_Mediator::openPlugin"));
    guarded(host, [&] {
        if (name != Keys::tools.binning) {
            host->openPluginByName(name);
            return;
        }
        ViewPauseGuard pause(host, false, true);
        host->openPluginByName(name);
    });
}

void JS_Mediator::closePlugin()
{
    OperationEventHandler operation(this, QLatin1String("JS_Mediator::closePlugin"));
    guarded(m_host, [&] { m_host->closeCurrentPlugin(); });
}

void JS_Mediator::closePlugin(const QString &name)
{
    HostServices *host = m_host;
    OperationEventHandler operation(this, QLatin1String("JS_Mediator::closePlugin"));
    guarded(host, [&] {
        DeterUpdateScope deter(host);
        host->closePluginByName(name);
    });
}

void JS_Mediator::errorHandler(std::exception &e)
{
    reportFailure(m_host, e);
}

void JS_Mediator::info(const QString &message)
{
    guarded(m_host, [&] { m_host->info(message, nullptr); });
}

void JS_Mediator::warn(const QString &message)
{
    guarded(m_host, [&] { m_host->warn(message, nullptr); });
}

void JS_Mediator::warn(const QString &message, const QStringList &messages)
{
    guarded(m_host, [&] { m_host->warn(message, messages, nullptr); });
}

void JS_Mediator::alert(const QString &message)
{
    guarded(m_host, [&] { m_host->alert(message, nullptr); });
}

void JS_Mediator::alert(const QString &message, const QStringList &messages)
{
    guarded(m_host, [&] { m_host->alert(message, messages, nullptr); });
}

bool JS_Mediator::confirm(const QString &message)
{
    return guarded(m_host, false, [&] { return m_host->confirm(message, nullptr, QVariantMap()); });
}

QString JS_Mediator::translate(const QString &string)
{
    return guarded(m_host, QString(), [&] { return m_host->translate(string); });
}

QString JS_Mediator::translate(const QString &string, const QString &arg)
{
    HostServices *host = m_host;
    return guarded(host, QString(), [&] {
        const QString text = host->translate(string);
        const QString value = host->translate(arg);
        return text.contains(QLatin1String("%1")) ? text.arg(value) : text;
    });
}

bool JS_Mediator::isReady()
{
    return guarded(m_host, false, [&] { return m_host->isReady(); });
}

bool JS_Mediator::isLiveMode()
{
    return guarded(m_host, false, [&] { return m_host->isLiveMode(); });
}

bool JS_Mediator::isMemoryMode()
{
    return guarded(m_host, false, [&] { return m_host->isMemoryMode(); });
}

bool JS_Mediator::isFileMode()
{
    return guarded(m_host, false, [&] { return m_host->isFileMode(); });
}

bool JS_Mediator::isPlaying()
{
    return askCurrentDocument(m_host, [](DOC_Interface *doc) { return doc->isPlaying(); });
}

bool JS_Mediator::isConnected()
{
    return askCurrentDocument(m_host, [](DOC_Interface *doc) { return doc->isConnected(); });
}

QString JS_Mediator::load(const QString &fileName)
{
    const QString path = QLatin1String(":/") + fileName;
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning() << "not found" << path;
        return QString();
    }
    return QString::fromUtf8(file.readAll());
}

void JS_Mediator::updateUI()
{
    guarded(m_host, [&] { m_host->updateUI(uint(m_updateFlags), true); });
}

void JS_Mediator::deterUpdateUI(bool deter)
{
    guarded(m_host, [&] { m_host->deterUpdateUI(deter); });
}

void JS_Mediator::addPrefsJSObject()
{
    GUI_WebView *view = webView();
    if (!view)
        return;
    QWebFrame *frame = view->page()->mainFrame();
    const auto show = [this, frame] {
        frame->addToJavaScriptWindowObject(QLatin1String("prefs"), this);
    };
    show();
    if (m_prefsFrame != frame) // from now on in each page that the frame loads
        connect(frame, &QWebFrame::javaScriptWindowObjectCleared, this, show);
    m_prefsFrame = frame;
}

void JS_Mediator::log(const QString &) {}

void JS_Mediator::infoLog(const QString &msg)
{
    OperationLog::info(msg);
}

void JS_Mediator::debugLog(const QString &) {}

void JS_Mediator::errorLog(const QString &msg)
{
    OperationLog::error(msg);
}

bool JS_Mediator::isWaveDataAcquisition()
{
    return guarded(m_host, false, [&] { return m_host->isWaveDataAcquisition(); });
}

int JS_Mediator::getRangeMax()
{
    HostServices *host = m_host;
    QPointer<JS_Mediator> self(this);
    return guarded(host, 0, [&] {
        int bits = FullRangeBits;
        ImageFormat format;
        DOC_Interface *doc = host->currentDocument();
        if (doc && host->getPrefBool(Keys::display.displayWithRealBitDepth, QVariant()) &&
            doc->imageFormat(format))
            bits = format.bits <= FullRangeBits ? format.bits : format.realBits;
        const uint maximum = maximumOfBits(bits);
        if (self)
            m_rangeMax = maximum;
        return int(maximum);
    });
}

bool JS_Mediator::isUpdateIgnore()
{
    return guarded(m_host, false, [&] { return m_host->isUpdateIgnore(); });
}

void JS_Mediator::userOperationLogWebView(const QString &url, const QString &operation,
                                          const QString &control, const QString &id,
                                          const QString &className, const QVariant &value)
{
    OperationLog::userOperation(url, operation, control, id, className, value);
}

void JS_Mediator::userOperationErrorLog(const QString &message)
{
    OperationLog::userOperationError(message);
}

int JS_Mediator::countMdiWindow(bool visible)
{
    return guarded(m_host, 0, [&] { return m_host->countMdiWindow(visible, CountForPages); });
}

bool JS_Mediator::isTrelvikRunning()
{
    return guarded(m_host, false, [&] { return m_host->isTrelvikRunning(); });
}

bool JS_Mediator::isMVersion()
{
    return guarded(m_host, false, [&] { return m_host->isMVersion(); });
}

QString JS_Mediator::getFlip()
{
    HostServices *host = m_host;
    int flip = 0;
    guarded(host, [&] {
        const DOCKEY key = host->currentDocKey();
        if (host->flipHorizontal(key))
            flip |= 1;
        if (host->flipVertical(key))
            flip |= 2;
    });
    return QString::number(flip);
}

QString JS_Mediator::getRotate()
{
    HostServices *host = m_host;
    return guarded(host, QString(QLatin1Char('0')), [&] {
        const double degrees = std::trunc(host->rotation(host->currentDocKey()) * DegreesPerTurn);
        constexpr double most = double(std::numeric_limits<int>::max());
        return QString::number(std::abs(degrees) <= most ? int(degrees) : 0);
    });
}
