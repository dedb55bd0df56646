#include "record/info/JS_Mediator_CustomInfoDialog.h"

#include "bridge/data/DocumentRows.h"
#include "bridge/operation/FileChoice.h"
#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/Json.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"
#include "foundation/ReplaceFile.h"
#include "foundation/exceptions/DOC_ReadFileException.h"
#include "record/info/CustomInfoFile.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "record/info/XmlTree.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QPointer>

#include <algorithm>

namespace {

constexpr int DisplayView = 17;

// Texts of their own, which all records share.
const QString Name = QLatin1String("name");
const QString OldName = QLatin1String("oldname");
const QString Value = QLatin1String("value");
const QString Unit = QLatin1String("unit");
const QString Display = QLatin1String("display");
const QString UseFileName = QLatin1String("usefilename");
const QString Selected = QLatin1String("selected");
const QLatin1String On("on");
const QLatin1String Comments("Comments");

QString textOf(const QVariantMap &record, const QString &key)
{
    return record.value(key).toString();
}

bool isOn(const QVariantMap &record, const QString &flag)
{
    return textOf(record, flag) == On;
}

QList<DOCKEY> documentKeys(HostServices *host, bool forTemporary)
{
    QList<DOCKEY> keys;
    if (forTemporary)
        host->temporaryDocumentKeys(keys);
    else
        host->selectedDocKeys(keys, true);
    return keys;
}

template <class Body> void forEachDocument(HostServices *host, const QVariantList &keys, Body body)
{
    for (const QVariant &key : keys) {
        if (DOC_Interface *document = host->deviceByKey(key.toULongLong(), true))
            body(document);
    }
}

/// Runs `body` and tells the host that record information changed, also where the body failed.
template <class Body> void changeDocuments(HostServices *host, Body body)
{
    guarded(host, body);
    guarded(host, [host] { host->refreshDocumentInfo(true); });
}

QVariantMap recordOf(const QVariantList &records, const QString &name)
{
    const auto found =
        std::find_if(records.cbegin(), records.cend(), [&name](const QVariant &record) {
            return textOf(record.toMap(), Name) == name;
        });
    return found == records.cend() ? QVariantMap() : found->toMap();
}

/// The records by their names, of several the first.
QHash<QString, QVariantMap> recordsByName(const QVariantList &records)
{
    QHash<QString, QVariantMap> byName;
    byName.reserve(records.size());
    for (auto record = records.crbegin(); record != records.crend(); ++record) {
        const QVariantMap map = record->toMap();
        byName.insert(textOf(map, Name), map);
    }
    return byName;
}

QString startFolder(HostServices *host)
{
    return host->getPref(Keys::application.xmlDir, QVariant()).toString();
}

void keepFolder(HostServices *host, const QString &path)
{
    host->setPref(Keys::application.xmlDir, QFileInfo(path).absolutePath());
}

QVariantList recordsOfFile(const QString &path)
{
    QVariantList records;
    QFile file(path);
    if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly)) // a pipe would never end
        CustomInfoFile::loadCustomInfo(XmlTree::read(file).documentElement(), records,
                                       CustomInfoFile::jobFields());
    return records;
}

}

JS_Mediator_CustomInfoDialog::JS_Mediator_CustomInfoDialog(HostServices *host,
                                                           GUI_CustomInfoDialog *dialog,
                                                           bool forTemporary)
    : JS_Mediator_Dialog(host, QLatin1String("CustomInfoDialog")), m_dialog(dialog),
      m_callbackType(DisplayView), m_forTemporary(forTemporary)
{
    const QList<DOCKEY> keys = documentKeys(host, forTemporary);
    for (DOCKEY key : keys) {
        if (DOC_Interface *document = host->deviceByKey(key, true))
            m_backup.insert(QString::number(key), document->customInfoList());
    }
}

void JS_Mediator_CustomInfoDialog::cancel()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::cancel"));
    HostServices *services = host();
    const QVariantMap backup = m_backup; // a call of the host may end the mediator
    changeDocuments(services, [&] {
        for (auto each = backup.cbegin(); each != backup.cend(); ++each) {
            DOC_Interface *document = services->deviceByKey(each.key().toULongLong(), true);
            if (!document)
                continue;
            document->clearCustomInfo();
            const QVariantList records = each.value().toList();
            for (const QVariant &saved : records) {
                const QVariantMap record = saved.toMap();
                document->addCustomInfo(textOf(record, Name), textOf(record, Value),
                                        textOf(record, Unit), isOn(record, Display),
                                        isOn(record, UseFileName));
            }
        }
    });
}

QString JS_Mediator_CustomInfoDialog::getDeviceInfo()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::getDeviceInfo"));
    HostServices *services = host();
    const bool forTemporary = m_forTemporary; // a call of the host may end the mediator
    return guarded(services, QString(), [&] {
        const QList<DOCKEY> keys = documentKeys(services, forTemporary);
        const DOCKEY initial = forTemporary ? keys.value(0, NoDocKey) : services->currentDocKey();
        DocumentRows rows;
        for (DOCKEY key : keys) {
            if (DOC_Interface *document = services->deviceByKey(key, true))
                rows.add(document->documentName(), key == initial, key);
        }
        return rows.text();
    });
}

QString JS_Mediator_CustomInfoDialog::getCustomInfo(DOCKEY dockey)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::getCustomInfo"),
                            LogGroups::group(QLatin1String("dockey"), dockey));
    HostServices *services = host();
    const QString flag = showsDisplayFlag() ? Display : UseFileName;
    return guarded(services, QString(), [&] {
        QJsonArray rows;
        DOC_Interface *document = services->deviceByKey(dockey, true);
        const QVariantList records = document ? document->customInfoList() : QVariantList();
        for (const QVariant &each : records) {
            const QVariantMap record = each.toMap();
            rows.append(QJsonObject{{QLatin1String("recid"), rows.size() + 1},
                                    {Selected, isOn(record, flag)},
                                    {Name, textOf(record, Name)},
                                    {Value, textOf(record, Value)},
                                    {Unit, textOf(record, Unit)}});
        }
        return Json::compactText(rows);
    });
}

void JS_Mediator_CustomInfoDialog::save(const QVariantList &customs)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::save"),
                            LogGroups::group(QLatin1String("customs"), customs));
    HostServices *services = host();
    QPointer<JS_Mediator_CustomInfoDialog> self(this);
    guarded(services, [&] {
        FileChoice::Question question;
        question.kind = FileChoice::Kind::SaveFile;
        question.start = startFolder(services);
        question.filter = QLatin1String("xml (*.xml)");
        question.options = QFileDialog::DontConfirmOverwrite;
        if (!self)
            return;
        question.parent = m_dialog;
        const QString path = FileChoice::askOne(question);
        if (path.isEmpty())
            return;
        keepFolder(services, path);
        const QByteArray content = CustomInfoFile::toXml(customs, services->hostVersionText());
        const ReplaceFile::Outcome outcome = ReplaceFile::write(path, content);
        if (outcome.result == ReplaceFile::Result::Failed)
            throw DOC_FileException(outcome.reason, path, 0);
    });
}

void JS_Mediator_CustomInfoDialog::load(const QVariantList &targets)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::load"));
    HostServices *services = host();
    QPointer<JS_Mediator_CustomInfoDialog> self(this);
    changeDocuments(services, [&] {
        FileChoice::Question question;
        question.kind = FileChoice::Kind::OpenFile;
        question.start = startFolder(services);
        question.filter = QLatin1String("xml (*.xml *.XML)");
        if (!self)
            return;
        question.parent = m_dialog;
        const QString path = FileChoice::askOne(question);
        if (path.isEmpty())
            return;
        keepFolder(services, path);
        const QVariantList records = recordsOfFile(path);
        if (records.isEmpty())
            throw DOC_ReadFileException(path);
        if (self)
            restoreCustomData(targets, records); // its failure is told there
    });
}

void JS_Mediator_CustomInfoDialog::deleteCustomData(const QVariantList &targets,
                                                    const QVariantList &customs)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::deleteCustomData"));
    HostServices *services = host();
    changeDocuments(services, [&] {
        forEachDocument(services, targets, [&](DOC_Interface *document) {
            for (const QVariant &custom : customs)
                document->removeCustomInfo(textOf(custom.toMap(), Name));
        });
    });
}

void JS_Mediator_CustomInfoDialog::restoreCustomData(const QVariantList &targets,
                                                     const QVariantList &customs)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::restoreCustomData"));
    HostServices *services = host();
    changeDocuments(services, [&] {
        forEachDocument(services, targets, [&](DOC_Interface *document) {
            document->clearCustomInfo();
            for (const QVariant &custom : customs) {
                const QVariantMap record = custom.toMap();
                const QString name = textOf(record, Name);
                if (name == Comments)
                    document->setDocumentComment(textOf(record, Value));
                else
                    document->addCustomInfo(name, textOf(record, Value), textOf(record, Unit),
                                            record.value(Selected).toBool(), true);
            }
        });
    });
}

void JS_Mediator_CustomInfoDialog::editCustomData(const QVariantList &targets,
                                                  const QVariant &custom)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::editCustomData"));
    HostServices *services = host();
    const QVariantMap edit = custom.toMap();
    changeDocuments(services, [&] {
        const QString oldName = textOf(edit, OldName);
        const QString name = textOf(edit, Name);
        forEachDocument(services, targets, [&](DOC_Interface *document) {
            const QVariantMap record = recordOf(document->customInfoList(), oldName);
            document->renameCustomInfo(oldName, name);
            document->setCustomInfo(name, textOf(edit, Value), textOf(edit, Unit),
                                    isOn(record, Display), isOn(record, UseFileName));
        });
    });
}

void JS_Mediator_CustomInfoDialog::addCustomData(const QVariantList &targets,
                                                 const QVariant &custom)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::addCustomData"));
    HostServices *services = host();
    const QVariantMap record = custom.toMap();
    changeDocuments(services, [&] {
        forEachDocument(services, targets, [&](DOC_Interface *document) {
            document->addCustomInfo(textOf(record, Name), textOf(record, Value),
                                    textOf(record, Unit), true, true);
        });
    });
}

void JS_Mediator_CustomInfoDialog::enableCustomData(const QVariantList &targets,
                                                    const QVariantList &customs)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CustomInfoDialog::enableCustomData"));
    HostServices *services = host();
    const bool showsDisplay = showsDisplayFlag(); // a call of the host may end the mediator
    changeDocuments(services, [&] {
        forEachDocument(services, targets, [&](DOC_Interface *document) {
            const auto records = recordsByName(document->customInfoList());
            for (const QVariant &custom : customs) {
                const QVariantMap wanted = custom.toMap();
                const QVariantMap record = records.value(textOf(wanted, Name));
                const bool selected = wanted.value(Selected).toBool();
                // Not "on" alone counts here, but every text that is no plain no.
                const bool display = showsDisplay ? selected : record.value(Display).toBool();
                const bool inFileName =
                    showsDisplay ? record.value(UseFileName).toBool() : selected;
                document->setCustomInfo(textOf(record, Name), textOf(record, Value),
                                        textOf(record, Unit), display, inFileName);
            }
        });
    });
}

void JS_Mediator_CustomInfoDialog::setSelectedDeviceItems(const QList<int> &ids)
{
    m_selection.select(ids);
}

int JS_Mediator_CustomInfoDialog::getCurrentDeviceRecord()
{
    return m_selection.current();
}

int JS_Mediator_CustomInfoDialog::getCallbackType()
{
    return m_callbackType;
}

bool JS_Mediator_CustomInfoDialog::showsDisplayFlag() const
{
    return m_callbackType == DisplayView;
}
