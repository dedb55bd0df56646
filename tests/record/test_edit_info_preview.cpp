#include "EditInfoScene.h"
#include "bridge/operation/DialogRun.h"
#include "bridge/operation/FileChoice.h"
#include "standin/documents/StandInGroup.h"
#include "tests/support/TestLog.h"

#include <QPixmap>
#include <QTimer>

Q_DECLARE_METATYPE(StandInHost::Mode)

// What the dialog of the information display shows of a document, and what it opens.

class TestEditInfoPreview : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void pictureKindFollowsTheFormat_data();
    void pictureKindFollowsTheFormat();
    void sizeOfThePicture_data();
    void sizeOfThePicture();
    void pictureIsPngInBase64();
    void partitionIsTheDocuments();
    void pictureNeedsTheDocument();
    void pictureThatCannotBeDrawnIsEmpty();
    void failedPictureIsEmpty_data();
    void failedPictureIsEmpty();
    void resolutionIsTold();
    void resolutionNeedsTheDocument();
    void exportLanguageIsTold_data();
    void exportLanguageIsTold();
    void failedTextsAreEmpty();
    void logoIsChosen_data();
    void logoIsChosen();
    void logoThatIsNotChosenChangesNothing();
    void logoStartsWhereTheLastOneLies_data();
    void logoStartsWhereTheLastOneLies();
    void logoPassesOverDocumentsThatHaveGone();
    void failedLogoGoesNoFurther_data();
    void failedLogoGoesNoFurther();
    void dialogIsOpened_data();
    void dialogIsOpened();
    void dialogThatCannotBeMadeIsNotRun_data();
    void dialogThatCannotBeMadeIsNotRun();
    void commentsOfADocumentThatHasGone();
    void dialogsOpenOverEachOther();
    void dialogMayGoWhileAnotherIsOpen_data();
    void dialogMayGoWhileAnotherIsOpen();
    void dialogMayGoWhileALogoIsChosen();
};

namespace {

const QString Time = QStringLiteral("\"2024-05-06T07:08:09\"");

QString thumbnail(DOCKEY document, int kind, int width, int height, int partition)
{
    return QStringLiteral("[%1].documentThumbnail(%2, %3, %4, %5, 0, %6)")
        .arg(document)
        .arg(kind)
        .arg(width)
        .arg(height)
        .arg(partition)
        .arg(Time);
}

// Answers the chooser, and keeps what it was asked.
struct Chooser
{
    explicit Chooser(const QString &answer)
    {
        FileChoice::setAnswer([this, answer](const FileChoice::Question &question) {
            questions.append(question);
            return answer.isEmpty() ? QStringList() : QStringList(answer);
        });
    }
    ~Chooser() { FileChoice::setAnswer(FileChoice::Answer()); }

    QVector<FileChoice::Question> questions;
};

}

void TestEditInfoPreview::cleanup()
{
    DialogRun::setAnswer(DialogRun::Answer());
    TestBase::cleanup();
}

void TestEditInfoPreview::pictureKindFollowsTheFormat_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("4") << 18;
    QTest::newRow("6") << 11;
    QTest::newRow("16") << 17;
    for (const char *other : {"-1", "0", "1", "2", "3", "5", "7", "10", "15", "17", "18"})
        QTest::newRow(other) << 10;
}

void TestEditInfoPreview::pictureKindFollowsTheFormat()
{
    QFETCH(int, kind);
    const int fileType = QByteArray(QTest::currentDataTag()).toInt();
    EditInfoScene scene;
    scene.open(true, fileType, scene.document(2), 3);
    QVERIFY(!scene.dialog->getThumbnail(40, 30).isEmpty());
    QCOMPARE(scene.journal(), QStringList({"documentKeyOf([2])", thumbnail(2, kind, 40, 30, 3)}));
    const QSize size = scene.document(2)->documentResolution(fileType, 3, false);
    scene.journal();
    scene.dialog->getThumbnail();
    const QString asked = QStringLiteral("[2].documentResolution(%1, 3, false)").arg(fileType);
    QCOMPARE(scene.journal(), QStringList({"documentKeyOf([2])", asked,
                                           thumbnail(2, kind, size.width(), size.height(), 3)}));
}

void TestEditInfoPreview::sizeOfThePicture_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("isTheDocuments");
    QTest::addColumn<QSize>("size");
    QTest::newRow("both") << "getThumbnail(40, 30)" << false << QSize(40, 30);
    QTest::newRow("width alone") << "getThumbnail(40)" << false << QSize(40, 0);
    QTest::newRow("no height") << "getThumbnail(40, 0)" << false << QSize(40, 0);
    QTest::newRow("none") << "getThumbnail()" << true << QSize();
    QTest::newRow("no width") << "getThumbnail(0, 30)" << true << QSize();
}

void TestEditInfoPreview::sizeOfThePicture()
{
    QFETCH(QString, call);
    QFETCH(bool, isTheDocuments);
    QFETCH(QSize, size);
    EditInfoScene scene(true);
    QVERIFY(scene.show());
    QStringList expected("documentKeyOf([1])");
    if (isTheDocuments) {
        expected.append("[1].documentResolution(1, 1, false)");
        size = scene.document(1)->documentResolution(1, 1, false);
        scene.journal();
    }
    scene.call(call);
    QCOMPARE(scene.journal(),
             expected + QStringList(thumbnail(1, 10, size.width(), size.height(), 1)));
}

void TestEditInfoPreview::pictureIsPngInBase64()
{
    EditInfoScene scene(true);
    QVERIFY(scene.show());
    QCOMPARE(scene.call("getThumbnailResolution()"), QStringLiteral("[-1,-1]"));
    const QString text = scene.dialog->getThumbnail(40, 40);
    const QByteArray bytes = QByteArray::fromBase64(text.toLatin1());
    QVERIFY(bytes.startsWith("\x89PNG"));
    const QDateTime time(QDate(2024, 5, 6), QTime(7, 8, 9));
    const QPixmap drawn = scene.document(1)->documentThumbnail(10, 40, 40, 1, 0, time);
    QVERIFY(!drawn.isNull());
    QCOMPARE(QImage::fromData(bytes, "PNG").convertToFormat(QImage::Format_RGB32),
             drawn.toImage().convertToFormat(QImage::Format_RGB32));
    QCOMPARE(QString::fromLatin1(bytes.toBase64()), text);
    // The picture keeps its shape, so its size is not the one that was asked for.
    scene.dialog->getThumbnail(40, 3000);
    const QSize size = scene.document(1)->documentThumbnail(10, 40, 3000, 1, 0, time).size();
    QVERIFY(size.height() < 3000);
    QCOMPARE(scene.dialog->getThumbnailResolution(), QList<int>({size.width(), size.height()}));
    QCOMPARE(scene.call("getThumbnailResolution()"),
             QStringLiteral("[%1,%2]").arg(size.width()).arg(size.height()));
}

void TestEditInfoPreview::partitionIsTheDocuments()
{
    EditInfoScene scene;
    scene.host.camera(2)->state().currentPartition = 5;
    scene.open(true, 1, scene.document(2), 0);
    scene.dialog->getThumbnail(40, 30);
    QCOMPARE(scene.journal().last(), thumbnail(2, 10, 40, 30, 5));
}

void TestEditInfoPreview::pictureNeedsTheDocument()
{
    EditInfoScene scene(true);
    scene.host.closeDocument(1);
    scene.journal();
    QCOMPARE(scene.dialog->getThumbnail(40, 30), QString());
    QCOMPARE(scene.journal(), QStringList("documentKeyOf([1])"));
    QCOMPARE(scene.dialog->getThumbnailResolution(), QList<int>({-1, -1}));

    EditInfoScene empty;
    empty.host.answerNullOn("currentDocument", 1);
    empty.open(true);
    QCOMPARE(empty.dialog->getThumbnail(), QString());
    QCOMPARE(empty.dialog->getResolutionStr(), QString());
    QCOMPARE(empty.journal(), QStringList());
}

void TestEditInfoPreview::pictureThatCannotBeDrawnIsEmpty()
{
    EditInfoScene scene;
    DOC_Interface *empty = scene.host.addGroup("empty", {});
    scene.open(true, 1, empty);
    QVERIFY(empty->documentThumbnail(10, 40, 30, 1, 0, {}).isNull());
    QCOMPARE(scene.dialog->getThumbnail(40, 30), QString());
    QCOMPARE(scene.dialog->getThumbnailResolution(), QList<int>({0, 0}));
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

void TestEditInfoPreview::failedPictureIsEmpty_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *operation : {"documentKeyOf", "documentResolution", "documentThumbnail"})
        QTest::newRow(operation) << QString::fromLatin1(operation);
}

void TestEditInfoPreview::failedPictureIsEmpty()
{
    QFETCH(QString, operation);
    EditInfoScene scene(true);
    scene.host.failOn(operation);
    QCOMPARE(scene.dialog->getThumbnail(), QString());
    QCOMPARE(scene.host.handledErrors(), QStringList(operation + " failed"));
    QCOMPARE(scene.dialog->getThumbnailResolution(), QList<int>({-1, -1}));
}

void TestEditInfoPreview::resolutionIsTold()
{
    EditInfoScene scene;
    scene.open(true, 16, scene.document(2), 4);
    scene.host.state().translations.insert("Resolution", "%1 Aufl\u00f6sung");
    const QSize size = scene.document(2)->documentResolution(16, 4, false);
    scene.journal();
    QCOMPARE(scene.dialog->getResolutionStr(),
             "%1 Aufl\u00f6sung : " + QString::number(size.width()) + " x " +
                 QString::number(size.height()));
    QCOMPARE(scene.journal(), QStringList({"documentKeyOf([2])", "translate(\"Resolution\")",
                                           "[2].documentResolution(16, 4, false)"}));
}

void TestEditInfoPreview::resolutionNeedsTheDocument()
{
    EditInfoScene scene(true);
    scene.host.closeDocument(1);
    scene.journal();
    QCOMPARE(scene.dialog->getResolutionStr(), QString());
    QCOMPARE(scene.journal(), QStringList("documentKeyOf([1])"));
}

void TestEditInfoPreview::exportLanguageIsTold_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("name");
    QTest::newRow("same") << QVariant(0) << "Same as operating language"
                          << "Wie die Oberfl\u00e4che";
    QTest::newRow("English") << QVariant(1) << "English"
                             << "Englisch";
    QTest::newRow("Japanese") << QVariant(2) << "Japanese"
                              << "Japanese";
    QTest::newRow("as text") << QVariant("2") << "Japanese"
                             << "Japanese";
    QTest::newRow("unknown") << QVariant(5) << ""
                             << "";
    QTest::newRow("below") << QVariant(-1) << ""
                           << "";
}

void TestEditInfoPreview::exportLanguageIsTold()
{
    QFETCH(QVariant, setting);
    QFETCH(QString, source);
    QFETCH(QString, name);
    EditInfoScene scene(true);
    scene.host.state().translations.insert("Output Language Setting", "Sprache %1");
    scene.host.state().translations.insert("Same as operating language", "Wie die Oberfl\u00e4che");
    scene.host.state().translations.insert("English", "Englisch");
    scene.host.settings().setValue("display/outputLanguage", setting);
    QCOMPARE(scene.dialog->getExportLanguage(), "Sprache %1 : " + name);
    QCOMPARE(scene.journal(), QStringList({"getPrefInt(\"display/outputLanguage\", invalid)",
                                           "translate(\"Output Language Setting\")",
                                           "translate(\"" + source + "\")"}));
}

void TestEditInfoPreview::failedTextsAreEmpty()
{
    EditInfoScene scene(true);
    scene.host.failOn("documentResolution");
    QCOMPARE(scene.dialog->getResolutionStr(), QString());
    scene.host.failOn("translate", 2);
    QCOMPARE(scene.dialog->getExportLanguage(), QString());
    scene.host.failOn("getPrefInt");
    QCOMPARE(scene.dialog->getExportLanguage(), QString());
    QCOMPARE(scene.host.handledErrors(),
             QStringList({"documentResolution failed", "translate failed", "getPrefInt failed"}));
}

void TestEditInfoPreview::logoIsChosen_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<StandInHost::Mode>("mode");
    using Mode = StandInHost::Mode;
    QTest::newRow("editor form, live") << false << Mode::Live;
    QTest::newRow("editor form, memory") << false << Mode::Memory;
    QTest::newRow("editor form, file") << false << Mode::File;
    QTest::newRow("save form, live") << true << Mode::Live;
    QTest::newRow("save form, memory") << true << Mode::Memory;
    QTest::newRow("save form, file") << true << Mode::File;
}

void TestEditInfoPreview::logoIsChosen()
{
    QFETCH(bool, saveForm);
    QFETCH(StandInHost::Mode, mode);
    const QString key = saveForm ? "saveinfo/LogoPath" : "info/LogoPath";
    EditInfoScene scene;
    scene.host.setMode(mode);
    scene.host.state().translations.insert("Logo Setting", "Zeichen");
    scene.host.settings().setValue(key, "/logos/old.png");
    scene.host.camera(2)->state().logoPath = "/elsewhere/own.png";
    scene.open(saveForm, 1, scene.document(2), 1, {scene.document(3), scene.document(2)});
    const Chooser chooser("/new/logo \"1\".png");
    scene.dialog->setLogoPath();

    QCOMPARE(chooser.questions.size(), 1);
    const FileChoice::Question &question = chooser.questions.first();
    QVERIFY(question.kind == FileChoice::Kind::OpenFile);
    QCOMPARE(question.parent, static_cast<QWidget *>(scene.dialog));
    QCOMPARE(question.caption, QStringLiteral("Zeichen"));
    QCOMPARE(question.start, QStringLiteral("/logos"));
    QCOMPARE(question.filter, QStringLiteral("Image files (*.bmp *.jpg *.png)"));
    QCOMPARE(int(question.options), 0);

    const bool isFile = mode == StandInHost::Mode::File;
    QStringList modes("isLiveMode()");
    if (mode != StandInHost::Mode::Live)
        modes.append("isMemoryMode()");
    const QString path = QStringLiteral("\"/new/logo \"1\".png\"");
    QStringList expected = modes;
    if (isFile)
        expected += QStringList({"documentKeyOf([2])", "[2].documentLogoPath()"});
    expected += QStringList({EditInfoScene::asked(key), "translate(\"Logo Setting\")"});
    expected += modes;
    if (isFile) {
        for (const char *number : {"2", "3", "2"})
            expected += QStringList({"documentKeyOf([" + QString(number) + "])",
                                     "[" + QString(number) + "].applyLogoPath(" + path + ")"});
    }
    expected.append("setPref(\"" + key + "\", " + path + ")");
    expected.append("documentKeys(true, false)");
    for (const char *number : {"1", "2", "3"})
        expected += QStringList({"deviceByKey(" + QString(number) + ", true)",
                                 "[" + QString(number) + "].markInfoOverlayDirty()"});
    if (!saveForm)
        expected.append(EditInfoScene::refreshed());
    QCOMPARE(scene.journal(), expected);
    QCOMPARE(scene.setting(key), QVariant("/new/logo \"1\".png"));
    QCOMPARE(scene.host.camera(3)->state().logoPath,
             isFile ? QString("/new/logo \"1\".png") : QString());
}

void TestEditInfoPreview::logoThatIsNotChosenChangesNothing()
{
    EditInfoScene scene(false);
    const Chooser chooser((QString()));
    scene.dialog->setLogoPath();
    QCOMPARE(chooser.questions.size(), 1);
    QCOMPARE(scene.host.commands(), QStringList());
}

void TestEditInfoPreview::logoStartsWhereTheLastOneLies_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("start");
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("missing") << "/no/such/folder/logo.png"
                             << "/no/such/folder";
    QTest::newRow("relative") << "logo.png" << QDir::currentPath();
    QTest::newRow("in the root") << "/logo.png"
                                 << "/";
}

void TestEditInfoPreview::logoStartsWhereTheLastOneLies()
{
    QFETCH(QString, path);
    EditInfoScene scene(false);
    scene.host.settings().setValue("info/LogoPath", path);
    const Chooser chooser((QString()));
    scene.dialog->setLogoPath();
    QTEST(chooser.questions.first().start, "start");
}

void TestEditInfoPreview::logoPassesOverDocumentsThatHaveGone()
{
    EditInfoScene scene;
    scene.host.setMode(StandInHost::Mode::File);
    scene.open(true, 1, scene.document(2), 1, {scene.document(3), scene.document(1)});
    scene.host.closeDocument(2);
    scene.host.closeDocument(3);
    scene.journal();
    const Chooser chooser("/new.png");
    scene.dialog->setLogoPath();
    QStringList applied = scene.host.journal().filter("LogoPath(");
    QCOMPARE(applied, QStringList("[1].applyLogoPath(\"/new.png\")"));
    QCOMPARE(scene.journal().filter("markInfoOverlayDirty"),
             QStringList("[1].markInfoOverlayDirty()"));
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

void TestEditInfoPreview::failedLogoGoesNoFurther_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QStringList>("commands");
    const QStringList none;
    QTest::newRow("isLiveMode") << "isLiveMode" << none;
    QTest::newRow("documentLogoPath") << "documentLogoPath" << none;
    QTest::newRow("getPref") << "getPref" << none;
    QTest::newRow("translate") << "translate" << none;
    const QStringList applied("[1].applyLogoPath(\"/new.png\")");
    const QStringList stored("setPref(\"info/LogoPath\", \"/new.png\")");
    QTest::newRow("applyLogoPath") << "applyLogoPath" << applied;
    QTest::newRow("setPref") << "setPref" << applied + stored;
    QTest::newRow("documentKeys") << "documentKeys" << applied + stored;
    QTest::newRow("markInfoOverlayDirty")
        << "markInfoOverlayDirty" << applied + stored + QStringList("[1].markInfoOverlayDirty()");
}

void TestEditInfoPreview::failedLogoGoesNoFurther()
{
    QFETCH(QString, operation);
    EditInfoScene scene;
    scene.host.setMode(StandInHost::Mode::File);
    scene.open(false, 1, scene.document(1));
    const Chooser chooser("/new.png");
    scene.host.failOn(operation);
    scene.dialog->setLogoPath();
    QCOMPARE(scene.host.handledErrors(), QStringList(operation + " failed"));
    QStringList commands = scene.host.commands();
    QVERIFY(commands.removeAll(commands.filter("errorHandler(").value(0)) == 1);
    QTEST(commands, "commands");
}

void TestEditInfoPreview::dialogIsOpened_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QStringList>("calls");
    for (bool saveForm : {false, true}) {
        const auto row = [saveForm](const char *slot, const char *className,
                                    const QStringList &calls) {
            QTest::addRow("%s, %s form", slot, saveForm ? "save" : "editor")
                << saveForm << QByteArray(slot) << QByteArray(className) << calls;
        };
        row("editComment", "GUI_CommentDialog",
            {"documentKeyOf([1])", "mainWidget()", "translate(\"Comment\")",
             "targetDocKeys(true, 0)"});
        row("editCustom", "GUI_CustomInfoDialog", {"mainWidget()", "selectedDocKeys(true)"});
        row("execTimeCodeSettingDialog", "GUI_TimeCodeCustomDialog",
            {"translate(\"Current Time Setting\")"});
        row("editShutterDispFormat", "GUI_ShutterSpeedFormatDialog", {"mainWidget()"});
        row("editRectimeDispFormat", "GUI_RectimeFormatDialog", {"mainWidget()"});
        row("editRecordRateDispFormat", "GUI_RecordRateFormatDialog", {"mainWidget()"});
        row("editFrameDispFormat", "GUI_FrameFormatDialog", {"mainWidget()"});
    }
}

// It is run, the views follow in the editor form, then it goes.
void TestEditInfoPreview::dialogIsOpened()
{
    QFETCH(bool, saveForm);
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, className);
    QFETCH(QStringList, calls);
    EditInfoScene scene(saveForm);
    QStringList story;
    DialogRun::setAnswer([&](QDialog &dialog) {
        story.append(QString::fromLatin1(dialog.metaObject()->className()));
        QWidget *parent = className == "GUI_TimeCodeCustomDialog"
                              ? static_cast<QWidget *>(scene.dialog->webView())
                              : &scene.mainWidget;
        if (dialog.parentWidget() != parent || !dialog.isWindow())
            story.append("stands elsewhere");
        if (scene.journal().mid(0, calls.size()) != calls)
            story.append("other calls");
        connect(&dialog, &QObject::destroyed, this, [&] {
            story += scene.host.commands().filter("updateUI");
            story.append("gone");
        });
        return int(QDialog::Rejected);
    });
    QVERIFY(QMetaObject::invokeMethod(scene.dialog, slot));
    QStringList expected(QString::fromLatin1(className));
    if (!saveForm)
        expected.append(EditInfoScene::refreshed());
    QCOMPARE(story, expected + QStringList("gone"));
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

void TestEditInfoPreview::dialogThatCannotBeMadeIsNotRun_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot :
         {"editComment", "editCustom", "execTimeCodeSettingDialog", "editShutterDispFormat",
          "editRectimeDispFormat", "editRecordRateDispFormat", "editFrameDispFormat"})
        QTest::newRow(slot) << QByteArray(slot);
}

void TestEditInfoPreview::dialogThatCannotBeMadeIsNotRun()
{
    QFETCH(QByteArray, slot);
    EditInfoScene scene(false);
    int runs = 0;
    DialogRun::setAnswer([&](QDialog &) { return ++runs; });
    scene.host.failOn("translate");
    QVERIFY(QMetaObject::invokeMethod(scene.dialog, slot));
    QCOMPARE(scene.host.handledErrors(), QStringList("translate failed"));
    QCOMPARE(runs, 0);
    QVERIFY(!scene.host.journal().contains(EditInfoScene::refreshed()));
}

void TestEditInfoPreview::commentsOfADocumentThatHasGone()
{
    EditInfoScene scene(false);
    scene.host.closeDocument(1);
    scene.journal();
    DialogRun::setAnswer([](QDialog &) { return int(QDialog::Rejected); });
    scene.dialog->editComment();
    QVERIFY(scene.host.journal().contains("selectedDocKeys(true)"));
    QVERIFY(!scene.host.journal().contains("targetDocKeys(true, 0)"));
}

// By the pages themselves: one opens, changes a setting, ends; the other goes on.
void TestEditInfoPreview::dialogsOpenOverEachOther()
{
    EditInfoScene scene(false);
    QVERIFY(scene.show());
    LogCapture log;
    bool wasOpen = false;
    QTimer::singleShot(0, scene.dialog, [&] {
        auto *opened = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        wasOpen = opened && opened != scene.dialog;
        if (opened)
            opened->reject();
    });
    scene.page->evaluate("editInfo.execTimeCodeSettingDialog(); editInfo.setFontSize('28', false)");
    QVERIFY(wasOpen);
    QCOMPARE(scene.host.commands(), QStringList({EditInfoScene::refreshed(),
                                                 EditInfoScene::written("info/FontSize", "28")}));
    QVERIFY(scene.dialog->isVisible());
}

void TestEditInfoPreview::dialogMayGoWhileAnotherIsOpen_data()
{
    dialogThatCannotBeMadeIsNotRun_data();
}

void TestEditInfoPreview::dialogMayGoWhileAnotherIsOpen()
{
    QFETCH(QByteArray, slot);
    EditInfoScene scene(false);
    DialogRun::setAnswer([&](QDialog &) {
        delete scene.dialog;
        return int(QDialog::Accepted);
    });
    QVERIFY(QMetaObject::invokeMethod(scene.dialog, slot));
    QVERIFY(!scene.dialog);
    QCOMPARE(scene.host.handledErrors(), QStringList());
    QVERIFY(scene.host.journal().contains(EditInfoScene::refreshed()));
}

void TestEditInfoPreview::dialogMayGoWhileALogoIsChosen()
{
    EditInfoScene scene(false);
    FileChoice::setAnswer([&](const FileChoice::Question &) {
        delete scene.dialog;
        return QStringList("/new.png");
    });
    scene.dialog->setLogoPath();
    FileChoice::setAnswer(FileChoice::Answer());
    QVERIFY(!scene.dialog);
    QCOMPARE(scene.setting("info/LogoPath"), QVariant("/new.png"));
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

int main(int argc, char **argv)
{
    TestEditInfoPreview test;
    return runTest(argc, argv, test);
}

#include "test_edit_info_preview.moc"
