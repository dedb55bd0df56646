#include "device/selectbox/GUI_SelectBox.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostGuard.h"
#include "device/selectbox/JS_Mediator_SelectBox.h"
#include "device/selectbox/SelectBoxPlacement.h"
#include "foundation/Keys.h"

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebFrame>

namespace {

constexpr int RegistrationRows = 2;

QRect screenOf(const QRect &field)
{
    QScreen *screen = QGuiApplication::screenAt(field.center());
    return (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

void addToPage(QWebFrame *frame, QLatin1String name, QObject *object)
{
    if (object)
        frame->addToJavaScriptWindowObject(name, object);
}

}

GUI_SelectBox::GUI_SelectBox(HostServices *host, QWidget *parent)
    : QWidget(parent, Qt::Dialog | Qt::FramelessWindowHint), m_host(host),
      m_webView(new GUI_WebView(host, this)), m_mediator(new JS_Mediator_SelectBox(host))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_webView);
    setFocusProxy(m_webView);

    m_mediator->setWebView(m_webView);
    connect(m_webView->page()->mainFrame(), &QWebFrame::javaScriptWindowObjectCleared, this,
            &GUI_SelectBox::addJSObject);
    connect(m_webView, &QWebView::loadStarted, this, [this] { m_loading = true; });
    connect(m_webView, &QWebView::loadFinished, this, &GUI_SelectBox::onLoadFinish);
    connect(m_mediator.get(), &JS_Mediator::close, this, &GUI_SelectBox::onClose);
    connect(m_mediator.get(), &JS_Mediator::update, this, &GUI_SelectBox::onUpdate);
    onUpdate();
    loadPage();
}

GUI_SelectBox::~GUI_SelectBox()
{
    // The view goes behind the mediator, and its page may still begin anew.
    disconnect(m_webView->page()->mainFrame(), nullptr, this, nullptr);
}

void GUI_SelectBox::showPartitions(const QVariantList &partitions, const QRect &field)
{
    open(partitions.size(), field,
         [this, partitions] { emit m_mediator->signalShowPartition(partitions); });
}

void GUI_SelectBox::showVariables(const QString &variables, int rows, const QRect &field)
{
    open(rows, field, [this, variables] { emit m_mediator->signalShowVariable(variables); });
}

void GUI_SelectBox::showVariableRegistration(const QString &variable, const QRect &field)
{
    open(RegistrationRows, field,
         [this, variable] { emit m_mediator->signalShowVariableRegist(variable); });
}

void GUI_SelectBox::loadPage()
{
    m_loading = true;
    m_webView->load(QUrl(QLatin1String("qrc:/selectbox.html")));
}

void GUI_SelectBox::open(int rows, const QRect &field, const std::function<void()> &fill)
{
    setGeometry(SelectBoxPlacement::place(field, rows, screenOf(field)));
    m_fill = fill;
    m_wantedVisible = true;
    if (m_loading)
        return; // it is filled and shows when that has ended
    if (m_loaded) {
        fillPage();
        setVisible(true);
    } else {
        loadPage(); // a page that was not there before may be there now
    }
}

void GUI_SelectBox::fillPage()
{
    std::function<void()> fill;
    fill.swap(m_fill);
    if (!fill)
        return;
    guarded(m_host, [&] {
        PageSignal::send(m_mediator.get(), [&] {
            fill();
            emit m_mediator->signalSetHeight(height());
        });
    });
}

void GUI_SelectBox::setVisible(bool visible)
{
    m_wantedVisible = visible; // a box that is hidden before its page is ready stays hidden
    if (!visible || !m_loading)
        QWidget::setVisible(visible);
}

bool GUI_SelectBox::event(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate)
        onClose();
    return QWidget::event(event);
}

void GUI_SelectBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        onClose();
    else
        QWidget::keyPressEvent(event);
}

void GUI_SelectBox::addJSObject()
{
    QWebFrame *frame = m_webView->page()->mainFrame();
    guarded(m_host, [&] {
        addToPage(frame, QLatin1String("app"), m_host->appScriptObject());
        addToPage(frame, QLatin1String("main"), m_host->mainScriptObject());
    });
    addToPage(frame, QLatin1String("items"), m_mediator.get());
}

void GUI_SelectBox::onLoadFinish(bool ok)
{
    m_loading = false;
    m_loaded = ok;
    if (m_loaded)
        fillPage();
    setVisible(m_wantedVisible);
}

void GUI_SelectBox::onClose()
{
    hide();
}

void GUI_SelectBox::onUpdate()
{
    QPointer<GUI_SelectBox> self(this); // the host may end the box
    guarded(m_host, [&] {
        const QString style = m_host->getPref(Keys::application.style, QVariant()).toString();
        if (!self)
            return;
        m_webView->setStyleSheet(style == QLatin1String("light")
                                     ? QLatin1String("background:#eee;")
                                     : QLatin1String("background:#333;"));
    });
}
