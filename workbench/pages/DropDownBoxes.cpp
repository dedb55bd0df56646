#include "workbench/pages/DropDownBoxes.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostGuard.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "device/selectbox/JS_Mediator_SelectBox.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/Pages.h"

#include <QEvent>

DropDownBoxes::DropDownBoxes(StandInHost &host, GUI_WebView &page, QObject *parent)
    : QObject(parent), m_host(host), m_page(page)
{
    Pages::registerResources();
    m_host.frontEnd().showDropDown = [this](const QString &key, const QRect &rect) {
        show(key, rect);
    };
    m_host.frontEnd().hideDropDown = [this] { hide(); };
    connect(
        m_host.events(), &StandInEvents::updated, this, [this] { restyle(); },
        Qt::QueuedConnection);
}

DropDownBoxes::~DropDownBoxes()
{
    m_host.frontEnd().showDropDown = nullptr;
    m_host.frontEnd().hideDropDown = nullptr;
    delete m_box;
}

GUI_SelectBox *DropDownBoxes::box() const
{
    return m_box;
}

bool DropDownBoxes::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide)
        m_host.state().isShownDropBox = false;
    return QObject::eventFilter(watched, event);
}

void DropDownBoxes::show(const QString &key, const QRect &rect)
{
    const StandInDocument *current = m_host.document(m_host.currentKey());
    if (key != QLatin1String("partition") || !current) {
        m_host.state().isShownDropBox = false;
        return;
    }
    QVariantList entries;
    for (const StandInPartition &partition : current->state().partitions)
        entries.append(QVariantMap{{QStringLiteral("value"), partition.number},
                                   {QStringLiteral("text"), partition.name}});
    makeBox();
    m_box->showPartitions(entries, QRect(m_page.mapToGlobal(rect.topLeft()), rect.size()));
}

void DropDownBoxes::hide()
{
    if (m_box)
        m_box->hide();
}

void DropDownBoxes::makeBox()
{
    if (m_box)
        return;
    m_box = new GUI_SelectBox(&m_host, m_page.window());
    m_box->installEventFilter(this);
    emit m_host.events()->pageAttached(m_box->webView()); // it shows its mediator itself
    m_box->webView()->setAccessibleName(tr("Partitions"));
}

void DropDownBoxes::restyle()
{
    if (!m_box)
        return;
    JS_Mediator *mediator = m_box->mediator();
    guarded(&m_host, [&] { PageSignal::send(mediator, [&] { emit mediator->update(); }); });
}
