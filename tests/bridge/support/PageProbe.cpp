#include "tests/bridge/support/PageProbe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QWebElement>
#include <QWebFrame>
#include <QtTest>

namespace {

constexpr int LoadTimeoutMsec = 20000;

}

PageProbe::PageProbe(QWebView *view) : m_view(view)
{
    m_connection = QObject::connect(view, &QWebView::loadFinished, [this](bool ok) {
        ++m_loads;
        m_found = ok;
    });
}

PageProbe::~PageProbe()
{
    QObject::disconnect(m_connection);
}

bool PageProbe::waitLoaded()
{
    const bool loaded = QTest::qWaitFor([&] { return m_loads > 0; }, LoadTimeoutMsec);
    m_loads = 0;
    return loaded;
}

QPoint PageProbe::middleOf(const QString &id) const
{
    QWebFrame *frame = m_view->page()->mainFrame();
    const QWebElement element = frame->findFirstElement(QLatin1Char('#') + id);
    return element.geometry().center() - frame->scrollPosition();
}

void PageProbe::click(const QString &id)
{
    QTest::mouseClick(m_view, Qt::LeftButton, Qt::NoModifier, middleOf(id));
}

void PageProbe::type(const QString &id, const QString &text)
{
    click(id);
    QTest::keyClicks(m_view, text);
}

QString PageProbe::text(const QString &id) const
{
    QWebFrame *frame = m_view->page()->mainFrame();
    return frame->findFirstElement(QLatin1Char('#') + id).toPlainText();
}

QVariant PageProbe::evaluate(const QString &script) const
{
    return m_view->page()->mainFrame()->evaluateJavaScript(script);
}

QString PageProbe::call(const QString &script)
{
    QWebFrame *frame = m_view->page()->mainFrame();
    QWebElement code = frame->findFirstElement(QStringLiteral("#code"));
    code.evaluateJavaScript(QStringLiteral("this.value = ") + scriptText(script));
    click(QStringLiteral("run"));
    return text(QStringLiteral("result"));
}

QString scriptText(const QString &text)
{
    const QByteArray array = QJsonDocument(QJsonArray({text})).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}
