#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QSignalSpy>

class TestStandInDocuments : public TestBase
{
    Q_OBJECT

private slots:
    void keysCountFromOneAndAreNeverUsedAgain();
    void firstDocumentIsCurrentAndSelected();
    void findsByKey();
    void knowsItsOwnDocumentsOnly();
    void signExtendedMinusOneIsNoDocument();
    void setCurrentDocKeepsTheSelection();
    void selectionKeepsItsOrder();
    void selectDocsTakesJustThese();
    void unselectTakesOut();
    void targetsAreTheCurrentOneAndTheSelection();
    void selectAllLeavesOutWhatCannotBeSelected();
    void documentsTellOfTheirSelection();
    void closingTheCurrentOneChoosesAnother();
    void removeAllOrOnlyUnselect();
    void closedDocumentIsOutOfEveryList();
    void camerasAreMarked();
    void liveDocumentsAreConnectedCameras();
    void cameraIsWhatItsDescriptionSays();
    void cameraMakesItsNamesFromItsNumber();
    void nameThatNoCameraHas_data();
    void nameThatNoCameraHas();
    void headsOfADevice();
    void partitions();
    void partitionSelection();
    void customInfo();
    void customInfoThatIsNotThereChangesNothing();
    void clearedFlagsOfCustomInfoHaveTheTextOfTheirDocument();
    void namesAndComment();
    void presets();
    void mediaSlots();
    void missingSlotIsUnusable();
    void network();
    void recordedOnceIsAPartitionWithFrames();
    void plainAnswersOfADocument();
    void groups();
    void groupLosesAClosedMember();
    void savePlanKnowsExactTexts();
    void windowsFollowDocuments();
    void eventsTellOfChanges();
};

namespace {

QList<DOCKEY> selected(StandInHost &host, bool inListOrder)
{
    QList<DOCKEY> keys{77};
    host.selectedDocKeys(keys, inListOrder);
    return keys;
}

// A line for each record: name, value, unit and both flags. Every value of it is a text.
QStringList customRecords(DOC_Interface *document)
{
    QStringList lines;
    const QVariantList records = document->customInfoList();
    for (const QVariant &entry : records) {
        const QVariantMap record = entry.toMap();
        QStringList fields;
        for (const char *field : {"name", "value", "unit", "display", "usefilename"}) {
            const QVariant value = record.value(field);
            fields.append(value.type() == QVariant::String ? value.toString() : value.typeName());
        }
        lines.append(fields.join('|'));
    }
    return lines;
}

}

void TestStandInDocuments::keysCountFromOneAndAreNeverUsedAgain()
{
    StandInHost host;
    QCOMPARE(host.addCamera()->key(), DOCKEY(1));
    QCOMPARE(host.addCamera()->key(), DOCKEY(2));
    host.removeDocument(2);
    QCOMPARE(host.addCamera()->key(), DOCKEY(3));
    QCOMPARE(host.documentKeys(true, false), QList<DOCKEY>({1, 3}));
    QCOMPARE(host.documentCount(), 2);
}

void TestStandInDocuments::firstDocumentIsCurrentAndSelected()
{
    StandInHost host;
    QCOMPARE(host.currentDocKey(), NoDocKey);
    QCOMPARE(host.currentDocument(), nullptr);
    QCOMPARE(host.selectedDocumentCount(), 0);
    DOC_Interface *first = host.addCamera();
    host.addCamera();
    QCOMPARE(host.currentDocKey(), DOCKEY(1));
    QCOMPARE(host.currentDocument(), first);
    QCOMPARE(selected(host, false), QList<DOCKEY>({1}));
}

void TestStandInDocuments::findsByKey()
{
    StandInHost host;
    DOC_Interface *doc = host.addCamera();
    QCOMPARE(host.deviceByKey(1, true), doc);
    QCOMPARE(host.documentByKey(1), doc);
    QCOMPARE(host.deviceByKey(2, true), nullptr);
    QCOMPARE(host.documentByKey(NoDocKey), nullptr);
    QCOMPARE(host.documentByKey(0), nullptr);
}

void TestStandInDocuments::knowsItsOwnDocumentsOnly()
{
    StandInHost host;
    StandInHost other;
    host.addCamera();
    StandInCamera *second = host.addCamera();
    StandInCamera *foreign = other.addCamera();
    QCOMPARE(host.documentKeyOf(second), DOCKEY(2));
    QCOMPARE(host.documentKeyOf(foreign), NoDocKey);
    QCOMPARE(host.documentKeyOf(nullptr), NoDocKey);
}

void TestStandInDocuments::signExtendedMinusOneIsNoDocument()
{
    StandInHost host;
    host.addCamera();
    const qint32 docId = -1;
    QCOMPARE(host.deviceByKey(DOCKEY(qint64(docId)), true), nullptr);
    QCOMPARE(host.journal(), QStringList({"deviceByKey(-1, true)"}));
}

void TestStandInDocuments::setCurrentDocKeepsTheSelection()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.setCurrentDoc(2, true);
    QCOMPARE(host.currentDocKey(), DOCKEY(2));
    QCOMPARE(selected(host, false), QList<DOCKEY>({1}));
    host.setCurrentDoc(9, true);
    QCOMPARE(host.currentDocKey(), DOCKEY(2));
}

void TestStandInDocuments::selectionKeepsItsOrder()
{
    StandInHost host;
    for (int i = 0; i < 3; ++i)
        host.addCamera();
    host.selectDocs({3, 1}, false);
    QCOMPARE(selected(host, false), QList<DOCKEY>({3, 1}));
    QCOMPARE(selected(host, true), QList<DOCKEY>({1, 3}));
    QCOMPARE(host.selectedDocumentCount(), 2);
}

void TestStandInDocuments::selectDocsTakesJustThese()
{
    StandInHost host;
    for (int i = 0; i < 3; ++i)
        host.addCamera();
    host.selectDocs({2, 9, 2, 3}, false); // 9 does not exist
    QCOMPARE(selected(host, false), QList<DOCKEY>({2, 3}));
    QCOMPARE(host.currentDocKey(), DOCKEY(3));
    host.selectDocs({}, false);
    QCOMPARE(selected(host, false), QList<DOCKEY>());
    QCOMPARE(host.currentDocKey(), DOCKEY(3));
}

void TestStandInDocuments::targetsAreTheCurrentOneAndTheSelection()
{
    StandInHost host;
    QList<DOCKEY> keys{77};
    host.targetDocKeys(keys, true, 0);
    QCOMPARE(keys, QList<DOCKEY>());
    for (int i = 0; i < 4; ++i)
        host.addCamera();
    host.selectDocs({}, false);
    host.setCurrentDoc(1, true);
    host.targetDocKeys(keys, true, 0);
    QCOMPARE(keys, QList<DOCKEY>({1})); // the current one, though not selected
    host.selectDocs({4, 2}, false);
    host.setCurrentDoc(1, true);
    host.targetDocKeys(keys, true, 0);
    QCOMPARE(keys, QList<DOCKEY>({1, 2, 4})); // in the order of the list
    host.setCurrentDoc(4, true);
    host.targetDocKeys(keys, true, 0);
    QCOMPARE(keys, QList<DOCKEY>({2, 4}));
    host.answerEmptyOn("targetDocKeys");
    host.targetDocKeys(keys, true, 0);
    QCOMPARE(keys, QList<DOCKEY>());
}

void TestStandInDocuments::unselectTakesOut()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.selectDocs({1, 2}, false);
    host.unselectDoc(1);
    host.unselectDoc(9);
    QCOMPARE(selected(host, true), QList<DOCKEY>({2}));
}

void TestStandInDocuments::selectAllLeavesOutWhatCannotBeSelected()
{
    StandInHost host;
    for (int i = 0; i < 3; ++i)
        host.addCamera();
    host.document(2)->state().isSelectable = false;
    host.selectAllDocs(nullptr);
    QCOMPARE(selected(host, false), QList<DOCKEY>({1, 3}));
}

void TestStandInDocuments::documentsTellOfTheirSelection()
{
    StandInHost host;
    DOC_Interface *first = host.addCamera();
    DOC_Interface *second = host.addCamera();
    QVERIFY(first->isSelected());
    QVERIFY(!first->isSelectedMulti());
    QVERIFY(!second->isSelected());
    second->setSelected(true);
    QCOMPARE(selected(host, false), QList<DOCKEY>({1, 2}));
    QVERIFY(first->isSelectedMulti());
    QVERIFY(second->isSelectedMulti());
    first->setSelected(false);
    QCOMPARE(selected(host, false), QList<DOCKEY>({2}));
    QVERIFY(!second->isSelectedMulti());
}

void TestStandInDocuments::closingTheCurrentOneChoosesAnother()
{
    StandInHost host;
    for (int i = 0; i < 3; ++i)
        host.addCamera();
    host.selectDocs({3, 2}, false);
    host.removeDocument(2);
    QCOMPARE(host.currentDocKey(), DOCKEY(3)); // still selected
    host.removeDocument(3);
    QCOMPARE(host.currentDocKey(), DOCKEY(1)); // the first one left
    host.removeDocument(1);
    QCOMPARE(host.currentDocKey(), NoDocKey);
    QCOMPARE(host.currentDocument(), nullptr);
    host.removeDocument(1); // has gone: nothing
    QCOMPARE(host.documentCount(), 0);
}

void TestStandInDocuments::removeAllOrOnlyUnselect()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.selectAllDocs(nullptr);
    host.removeAllDocuments(0, true);
    QCOMPARE(host.documentCount(), 2);
    QCOMPARE(host.selectedDocumentCount(), 0);
    host.removeAllDocuments(0, false);
    QCOMPARE(host.documentCount(), 0);
    QCOMPARE(host.currentDocKey(), NoDocKey);
}

void TestStandInDocuments::closedDocumentIsOutOfEveryList()
{
    StandInHost host;
    host.addCamera();
    StandInCamera *second = host.addCamera();
    host.selectAllDocs(nullptr);
    host.closeDocument(2);
    QVERIFY(second->isClosed());
    QList<DOCKEY> keys;
    host.deviceKeys(keys, true);
    QCOMPARE(keys, QList<DOCKEY>({1}));
    host.liveDocKeys(keys, true);
    QCOMPARE(keys, QList<DOCKEY>({1}));
    QCOMPARE(selected(host, true), QList<DOCKEY>({1}));
    QCOMPARE(host.documentKeyOf(second), NoDocKey);
}

void TestStandInDocuments::camerasAreMarked()
{
    StandInHost host;
    DOC_Interface *camera = host.addCamera();
    DOC_Interface *group = host.addGroup("both", {});
    QVERIFY(dynamic_cast<DOC_Camera *>(camera));
    QVERIFY(!dynamic_cast<DOC_Camera *>(group));
}

void TestStandInDocuments::liveDocumentsAreConnectedCameras()
{
    StandInHost host;
    StandInCamera::Description away;
    away.isConnected = false;
    StandInCamera::Description dummy;
    dummy.isDummy = true;
    host.addCamera(away);
    host.addCamera();
    host.addCamera(dummy);
    host.addGroup("all", {});
    QList<DOCKEY> keys{77};
    host.liveDocKeys(keys, true);
    QCOMPARE(keys, QList<DOCKEY>({2}));
    QCOMPARE(host.liveDocumentKeys(true), QList<DOCKEY>({2}));
    host.deviceKeys(keys, true);
    QCOMPARE(keys, QList<DOCKEY>({1, 2, 3}));
    QCOMPARE(host.documentKeys(true, false), QList<DOCKEY>({1, 2, 3, 4}));
}

void TestStandInDocuments::cameraIsWhatItsDescriptionSays()
{
    StandInHost host;
    StandInCamera::Description description;
    description.name = "Front";
    description.model = "S-2048";
    description.serialNumber = "4711";
    description.headSerialNumber = "815";
    description.firmwareVersion = "2.5";
    description.address = "10.0.0.7";
    description.cameraNumber = 4;
    description.recordRate = 4000;
    description.shutterSpeed = 8000;
    description.region = QRect(10, 20, 320, 240);
    description.comment = "crash";
    description.isFound = false;
    description.isMobile = true;
    StandInCamera *camera = host.addCamera(description);
    QCOMPARE(camera->cameraName(), QString("Front"));
    QCOMPARE(camera->documentName(), QString("Front"));
    QCOMPARE(camera->deviceName(), QString("S-2048"));
    QCOMPARE(camera->ipAddress(), QString("10.0.0.7"));
    QCOMPARE(camera->cameraNumber(), 4);
    QCOMPARE(camera->recordRate(), 4000u);
    QCOMPARE(camera->shutterSpeed(), 8000u);
    QCOMPARE(camera->sensorRegion(), QRect(10, 20, 320, 240));
    QCOMPARE(camera->imageSize(), QSize(320, 240));
    QCOMPARE(camera->documentComment(), QString("crash"));
    QVERIFY(!camera->isFound());
    QVERIFY(camera->isMobile());
    QVERIFY(camera->isCameraRecord());
    QVERIFY(camera->isConnected());
    int w = 0;
    int h = 0;
    camera->fullImageSize(&w, &h);
    QCOMPARE(QSize(w, h), QSize(1024, 1024));
    const EditDeviceData data = camera->editDeviceData();
    QCOMPARE(data.modelName, QString("S-2048"));
    QCOMPARE(data.deviceSerialNumber, QString("4711"));
    QCOMPARE(data.headSerialNumber, QString("815"));
    QCOMPARE(data.firmwareVersion, QString("2.5"));
    QCOMPARE(data.network.ipAddress, QString("10.0.0.7"));
    QCOMPARE(host.addCamera()->cameraNumber(), 5); // behind the highest
}

void TestStandInDocuments::cameraMakesItsNamesFromItsNumber()
{
    StandInHost host;
    QCOMPARE(host.defaultCameraName(), QString("Camera 1"));
    host.addCamera();
    StandInCamera *second = host.addCamera();
    QCOMPARE(second->name(), QString("Camera 2"));
    QCOMPARE(second->cameraNumber(), 1);
    QCOMPARE(second->serialNumber(), QString("10002"));
    QCOMPARE(second->ipAddress(), QString("192.168.0.11"));
    QCOMPARE(second->cameraCount(), 2);
    host.addDevice("Rear", "10.0.0.9", true);
    QCOMPARE(host.camera(3)->name(), QString("Rear"));
    QCOMPARE(host.camera(3)->ipAddress(), QString("10.0.0.9"));
    QVERIFY(host.camera(3)->isDummy());
    QCOMPARE(host.defaultCameraName(), QString("Camera 3"));
    host.closeDocument(1);
    QCOMPARE(host.defaultCameraName(), QString("Camera 1"));
}

void TestStandInDocuments::nameThatNoCameraHas_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("free");
    QTest::newRow("no camera") << QStringList() << "Camera 1";
    QTest::newRow("in order") << QStringList({"Camera 1", "Camera 2"}) << "Camera 3";
    QTest::newRow("a gap") << QStringList({"Camera 3", "Camera 1"}) << "Camera 2";
    QTest::newRow("other names do not count") << QStringList({"Left", "Camera 1"}) << "Camera 2";
    QTest::newRow("a head twice") << QStringList({"Camera 1", "Camera 1"}) << "Camera 2";
    QTest::newRow("a longer name") << QStringList({"Camera 10", "Camera 1 "}) << "Camera 1";
}

void TestStandInDocuments::nameThatNoCameraHas()
{
    QFETCH(QStringList, names);
    StandInHost host;
    for (const QString &name : names) {
        StandInCamera::Description description;
        description.name = name;
        host.addCamera(description);
    }
    QTEST(host.defaultCameraName(), "free");
}

void TestStandInDocuments::headsOfADevice()
{
    StandInHost host;
    StandInCamera::Description description;
    description.headCount = 2;
    description.headNumber = 2;
    StandInCamera *camera = host.addCamera(description);
    QCOMPARE(camera->headNumber(), 2);
    QCOMPARE(camera->headInterface()->headCount(), 2);
    QVERIFY(!host.addGroup("none", {})->headInterface());
}

void TestStandInDocuments::partitions()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    QCOMPARE(camera->partitionNumbers(), QList<int>({1}));
    camera->state().partitions = {{1, "empty", 0, 0}, {4, "long", 200, 5000}};
    camera->state().currentPartition = 2;
    QCOMPARE(camera->partitionNumbers(), QList<int>({1, 4}));
    QCOMPARE(camera->partitionName(4), QString("long"));
    QCOMPARE(camera->partitionFrameCount(4), 200u);
    QCOMPARE(camera->partitionRecordRate(4), 5000u);
    QCOMPARE(camera->partitionFrameCount(1), 0u);
    QCOMPARE(camera->partitionName(2), QString());
    QCOMPARE(camera->partitionFrameCount(2), 0u);
    QCOMPARE(camera->partitionRecordRate(2), 0u);
    QCOMPARE(camera->frameCount(), quint64(200));
}

void TestStandInDocuments::partitionSelection()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().partitions = {{1, "a", 0, 0}, {2, "b", 10, 0}, {7, "c", 20, 0}};
    QCOMPARE(camera->currentPartition(), 1);
    QCOMPARE(camera->selectPartition(7), 1); // the number before
    QCOMPARE(camera->currentPartition(), 3); // the position
    QCOMPARE(camera->selectPartition(5), 7);
    QCOMPARE(camera->currentPartition(), 3);
    host.selectCameraPartition(2, true);
    QCOMPARE(camera->currentPartition(), 2);
}

void TestStandInDocuments::customInfo()
{
    StandInHost host;
    DOC_Interface *doc = host.addCamera();
    doc->addCustomInfo("TestNo", "7", "", true, false);
    doc->addCustomInfo("Mass", "80", "kg", false, true);
    QCOMPARE(customRecords(doc),
             QStringList({"TestNo|7||on|", "Mass|80|kg||on"})); // a cleared flag is empty
    doc->addCustomInfo("Mass", "2", "t", true, true);           // a second one of this name
    doc->setCustomInfo("Mass", "81", "g", true, false);
    QCOMPARE(customRecords(doc), QStringList({"TestNo|7||on|", "Mass|81|g|on|", "Mass|2|t|on|on"}));
    doc->renameCustomInfo("Mass", "Weight");
    QCOMPARE(customRecords(doc),
             QStringList({"TestNo|7||on|", "Weight|81|g|on|", "Mass|2|t|on|on"}));
    doc->removeCustomInfo("TestNo");
    doc->removeCustomInfo("Mass");
    QCOMPARE(customRecords(doc), QStringList({"Weight|81|g|on|"}));
    doc->clearCustomInfo();
    QCOMPARE(customRecords(doc), QStringList());
}

void TestStandInDocuments::customInfoThatIsNotThereChangesNothing()
{
    StandInHost host;
    DOC_Interface *doc = host.addCamera();
    doc->addCustomInfo("Mass", "80", "kg", true, true);
    QSignalSpy changes(host.events(), &StandInEvents::documentInfoChanged);
    for (const QString &name : QStringList{"mass", "", "Mas"}) {
        doc->setCustomInfo(name, "1", "", false, false);
        doc->renameCustomInfo(name, "x");
        doc->removeCustomInfo(name);
    }
    QCOMPARE(customRecords(doc), QStringList({"Mass|80|kg|on|on"}));
    QCOMPARE(changes.size(), 0);
}

void TestStandInDocuments::clearedFlagsOfCustomInfoHaveTheTextOfTheirDocument()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().clearedCustomFlag = "off";
    camera->addCustomInfo("TestNo", "7", "", false, true);
    camera->setCustomInfo("TestNo", "8", "", true, false);
    camera->addCustomInfo("Mass", "80", "kg", false, false);
    QCOMPARE(customRecords(camera), QStringList({"TestNo|8||on|off", "Mass|80|kg|off|off"}));
}

void TestStandInDocuments::namesAndComment()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setDocumentComment("two\nlines");
    QCOMPARE(camera->documentComment(), QString("two\nlines"));
    camera->setCameraName("Left");
    QCOMPARE(camera->cameraName(), QString("Left"));
    QCOMPARE(camera->documentName(), QString("Left"));
    QCOMPARE(camera->displayName(), QString("Left"));
    QCOMPARE(camera->fallbackName(), QString("Left"));
    QCOMPARE(host.currentWindowTitle(), QString("Left"));
    camera->setDataName("run");
    QCOMPARE(camera->state().dataName, QString("run"));
    camera->deleteOwnFile();
    QVERIFY(camera->state().isFileDeleted);
}

void TestStandInDocuments::presets()
{
    StandInHost host;
    StandInCamera::Description description;
    description.presets = {{3, "slow", false}, {1, "fast", true}};
    StandInCamera *camera = host.addCamera(description);
    camera->state().presetsWithReboot = {3};
    const QList<PresetInfo> presets = camera->presets();
    QCOMPARE(presets.size(), 2);
    QCOMPARE(presets.at(0).number, 1);
    QCOMPARE(presets.at(1).name, QString("slow"));
    QVERIFY(presets.at(0).selected);
    camera->applyPreset(3);
    QCOMPARE(camera->state().appliedPreset, 3);
    QVERIFY(camera->presets().at(1).selected);
    QVERIFY(!camera->presets().at(0).selected);
    QVERIFY(camera->presetNeedsReboot(3));
    QVERIFY(!camera->presetNeedsReboot(1));
}

void TestStandInDocuments::mediaSlots()
{
    StandInHost host;
    StandInSlot slot;
    slot.status = {1, 1, 0, 1};
    slot.card = {10, 30, 64000000000ULL};
    slot.freeMebibytes = 500;
    slot.maxDataCount = 99;
    slot.data = {{"one", 100, {0x170605, 0x102030}}, {"two", 50, {}}};
    StandInCamera::Description description;
    description.mediaSlots = {slot};
    StandInCamera *camera = host.addCamera(description);
    camera->state().slotOfHead.insert(1, 0);
    QVERIFY(camera->isMediaManaged());
    QVERIFY(camera->isSlotUsable(0));
    QVERIFY(camera->isSlotEnabled(0));
    QCOMPARE(camera->slotStatus(0).formatted, 0);
    QCOMPARE(camera->slotStatus(0).writeProtected, 1);
    QCOMPARE(camera->sdCardInfo(0).capacity, 64000000000ULL);
    QCOMPARE(camera->slotCapacity(0), 500ULL);
    QCOMPARE(camera->maxDataCount(0), 99);
    QCOMPARE(camera->slotOfHead(1), 0);
    QCOMPARE(camera->slotOfHead(2), -1);
    QCOMPARE(camera->dataFrames(0, 1), 50u);
    QCOMPARE(camera->dataFrames(0, 2), 0u); // behind the last
    QCOMPARE(camera->dataName(0, 0), QString("one"));
    QCOMPARE(camera->dataTime(0, 0).date, 0x170605u);
    camera->setDataNameOnSlot(0, 1, QByteArray("\xc3\xbc"));
    QCOMPARE(camera->dataName(0, 1), QString::fromUtf8("ü"));
    camera->refreshSlot(0);
    QCOMPARE(camera->state().mediaSlots.at(0).refreshes, 1);
    camera->formatSlot(0);
    QCOMPARE(camera->dataFrames(0, 0), 0u);
    QCOMPARE(camera->slotStatus(0).formatted, 1);
}

void TestStandInDocuments::missingSlotIsUnusable()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    for (int slot : {-1, 0, 7}) {
        QVERIFY(!camera->isSlotUsable(slot));
        QVERIFY(!camera->isSlotEnabled(slot));
        QCOMPARE(camera->slotStatus(slot).connected, 0);
        QCOMPARE(camera->sdCardInfo(slot).capacity, 0ULL);
        QCOMPARE(camera->slotCapacity(slot), 0ULL);
        QCOMPARE(camera->maxDataCount(slot), 0);
        QCOMPARE(camera->dataFrames(slot, 0), 0u);
        QCOMPARE(camera->dataName(slot, -1), QString());
        QCOMPARE(camera->dataTime(slot, 0).time, 0);
        camera->formatSlot(slot);
        camera->refreshSlot(slot);
        camera->setDataNameOnSlot(slot, 0, "x");
    }
    QVERIFY(!camera->isMediaManaged());
}

void TestStandInDocuments::network()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const NetworkSetting wireless{"10.1.1.1", "255.0.0.0", "10.1.1.254"};
    camera->setNetworkSetting(1, wireless); // another kind than the one in use
    QCOMPARE(camera->ipAddress(), QString("192.168.0.10"));
    camera->setEtherType(1);
    QCOMPARE(camera->ipAddress(), QString("10.1.1.1"));
    QCOMPARE(camera->editDeviceData().etherType, 1);
    QCOMPARE(camera->editDeviceData().network.subnetMask, QString("255.0.0.0"));
    camera->setNetworkSetting(1, {"10.1.1.2", "255.0.0.0", "10.1.1.254"});
    QCOMPARE(camera->ipAddress(), QString("10.1.1.2"));
}

void TestStandInDocuments::recordedOnceIsAPartitionWithFrames()
{
    StandInHost host;
    StandInCamera::Description description;
    description.partitions = {{1, "A", 0, 0}, {2, "B", 0, 0}};
    StandInCamera *camera = host.addCamera(description);
    QVERIFY(!camera->isRecordedOnce());
    camera->state().partitions[1].frames = 1;
    QVERIFY(camera->isRecordedOnce());
    camera->state().isRecordedOnce = false;
    QVERIFY(!camera->isRecordedOnce());
    QVERIFY(!host.addGroup("none", {})->isRecordedOnce());
}

void TestStandInDocuments::plainAnswersOfADocument()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    DocumentState &state = camera->state();
    state.isOnSdCard = true;
    QVERIFY(camera->isOnSdCard() && !camera->isOnKelvault() && !camera->isOnCFast());
    state.isOnSdCard = false;
    state.isOnKelvault = true;
    QVERIFY(!camera->isOnSdCard() && camera->isOnKelvault() && !camera->isOnCFast());
    state.isOnKelvault = false;
    state.isOnCFast = true;
    QVERIFY(!camera->isOnSdCard() && !camera->isOnKelvault() && camera->isOnCFast());
    state.isBusySaving = true;
    QVERIFY(camera->isBusySaving());
    camera->setSaveInfoOption(true);
    QVERIFY(state.saveInfoOption && !state.saveCorrectOption && !state.saveScaleOption);
    camera->setSaveCorrectOption(true);
    QVERIFY(state.saveCorrectOption && !state.saveScaleOption);
    camera->setSaveScaleOption(true);
    QVERIFY(state.saveScaleOption);
    state.infoMap = {{"name", "x"}};
    QCOMPARE(camera->documentInfoMap(true, false, true, false, true), state.infoMap);
    state.supportsMultiSkip = true;
    QVERIFY(camera->supportsMultiSkip() && !camera->supportsFileMultiSkip());
    state.supportsFileMultiSkip = true;
    QVERIFY(camera->supportsFileMultiSkip() && !camera->isRecordedOnce());
    state.isRecordedOnce = true;
    QVERIFY(camera->isRecordedOnce());
    camera->setOpenedByImport(true);
    QVERIFY(state.isOpenedByImport);
    state.canRenameData = true;
    QVERIFY(camera->canRenameData() && !camera->canCheckSaved());
    state.canCheckSaved = true;
    QVERIFY(camera->canCheckSaved() && !camera->canDeleteFile());
    state.canDeleteFile = true;
    QVERIFY(camera->canDeleteFile() && !camera->isPlaying());
    state.isPlaying = true;
    QVERIFY(camera->isPlaying());
    state.fileRecordRate = 250;
    QCOMPARE(camera->fileRecordRate(), 250u);
    state.isMultiTrimming = true;
    state.multiTrimmingLabel = "1-5";
    QVERIFY(camera->isMultiTrimming());
    QCOMPARE(camera->multiTrimmingLabel(), QString("1-5"));
    state.recordDate = "2024/2/3";
    state.recordTime = "04:05";
    QCOMPARE(camera->recordDate(), QString("2024/2/3"));
    QCOMPARE(camera->recordTime(), QString("04:05"));
    state.capabilities = {117};
    QVERIFY(camera->hasCapability(117) && !camera->hasCapability(112));
    state.isFitMemoryMode = true;
    QVERIFY(camera->isFitMemoryMode());
    camera->refreshCamera();
    QCOMPARE(state.cameraRefreshes, 1);
    state.wirelessState = 1;
    QCOMPARE(camera->wirelessState(), 1);
    QCOMPARE(camera->linkSpeedState(), 0);
    state.linkSpeedState = 1;
    QCOMPARE(camera->linkSpeedState(), 1);
    state.isConnected = false;
    QVERIFY(!camera->isConnected() && camera->isFound());
    state.showsLutCurve = true;
    QVERIFY(camera->showsLutCurve() && !camera->isReductionSuspended());
    state.isReductionSuspended = true;
    QVERIFY(camera->isReductionSuspended());
    camera->applyLogoPath("logo.png");
    QCOMPARE(camera->documentLogoPath(), QString("logo.png"));
    camera->markInfoOverlayDirty();
    QVERIFY(state.isInfoOverlayDirty);
}

void TestStandInDocuments::groups()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    StandInCamera *alone = host.addCamera();
    StandInGroup *group = host.addGroup("both", {second, first});
    const QList<DOC_Interface *> members{first, second}; // in the host's order
    QVERIFY(group->isGroup());
    QCOMPARE(group->documentName(), QString("both"));
    QCOMPARE(group->groupMembers(), members);
    QVERIFY(!first->isGroup());
    QCOMPARE(first->groupMembers(), members);
    QCOMPARE(alone->groupMembers(), QList<DOC_Interface *>());
}

void TestStandInDocuments::groupLosesAClosedMember()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    StandInGroup *group = host.addGroup("both", {first, second});
    host.removeDocument(1);
    QCOMPARE(group->groupMembers(), QList<DOC_Interface *>({second}));
    QCOMPARE(group->members(), QList<StandInDocument *>({second}));
    host.removeDocument(2);
    QVERIFY(group->isGroup());
    QCOMPARE(group->groupMembers(), QList<DOC_Interface *>());
}

void TestStandInDocuments::savePlanKnowsExactTexts()
{
    StandInHost host;
    host.addPlannedDir("D:/x/");
    host.addPlannedFile("D:/x/a");
    QVERIFY(host.isPlannedDir("D:/x/"));
    QVERIFY(!host.isPlannedDir("D:/x"));
    QVERIFY(!host.isPlannedDir("d:/x/"));
    QVERIFY(!host.isPlannedDir("D:/x/a"));
    QVERIFY(host.isPlannedFile("D:/x/a"));
    QVERIFY(!host.isPlannedFile("D:/x/"));
    QCOMPARE(host.plannedGroupDir(), QString());
    host.setPlannedGroupDir("Run");
    QCOMPARE(host.plannedGroupDir(), QString("Run"));
    QCOMPARE(host.plannedTargetDir(), QString());
    host.savePlan().setTargetDir("E:/");
    QCOMPARE(host.plannedTargetDir(), QString("E:/"));
    host.clearPlannedDirs();
    QVERIFY(!host.isPlannedDir("D:/x/"));
    QVERIFY(host.isPlannedFile("D:/x/a"));
    host.clearPlannedFiles();
    QVERIFY(!host.isPlannedFile("D:/x/a"));
    QCOMPARE(host.plannedGroupDir(), QString("Run"));
    host.clearPlannedGroupDir();
    QCOMPARE(host.plannedGroupDir(), QString());
    QCOMPARE(host.plannedTargetDir(), QString("E:/"));
}

void TestStandInDocuments::windowsFollowDocuments()
{
    StandInHost host;
    QCOMPARE(host.countMdiWindow(true, 0), 0);
    QCOMPARE(host.currentWindowTitle(), QString());
    host.addCamera();
    host.addCamera();
    QCOMPARE(host.countMdiWindow(false, 2), 2);
    QCOMPARE(host.countMdiWindow(true, 0), 2);
    QCOMPARE(host.currentWindowTitle(), QString("Camera 1"));
    host.state().visibleWindowCount = 1;
    QCOMPARE(host.countMdiWindow(true, 0), 1);
    QCOMPARE(host.countMdiWindow(false, 0), 2);
    host.state().windowCount = 5;
    QCOMPARE(host.countMdiWindow(false, 0), 5);
}

void TestStandInDocuments::eventsTellOfChanges()
{
    StandInHost host;
    QSignalSpy list(host.events(), &StandInEvents::documentsChanged);
    QSignalSpy current(host.events(), &StandInEvents::currentDocumentChanged);
    QSignalSpy selection(host.events(), &StandInEvents::selectionChanged);
    QSignalSpy refreshed(host.events(), &StandInEvents::documentRefreshed);
    QSignalSpy information(host.events(), &StandInEvents::documentInfoChanged);
    DOC_Interface *doc = host.addCamera();
    host.addCamera();
    QCOMPARE(list.count(), 2);
    QCOMPARE(current.count(), 1);
    QCOMPARE(selection.count(), 1);
    host.setCurrentDoc(2, true);
    host.setCurrentDoc(2, true);
    QCOMPARE(current.count(), 2);
    QCOMPARE(current.last().first().toULongLong(), 2ULL);
    host.selectDocs({1}, false); // as it is, but makes it current
    QCOMPARE(selection.count(), 1);
    QCOMPARE(current.count(), 3);
    doc->refresh(true);
    QCOMPARE(refreshed.count(), 1);
    QCOMPARE(refreshed.last().first().toULongLong(), 1ULL);
    doc->setDocumentComment("x");
    host.refreshDocumentInfo(true);
    QCOMPARE(information.count(), 2);
    host.removeDocument(1);
    QCOMPARE(list.count(), 3);
    QCOMPARE(selection.count(), 2);
    QCOMPARE(current.last().first().toULongLong(), 2ULL);
}

int main(int argc, char **argv)
{
    TestStandInDocuments test;
    return runTest(argc, argv, test);
}

#include "test_standin_documents.moc"
