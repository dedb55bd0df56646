#include "EditInfoScene.h"
#include "tests/support/TestLog.h"

#include <QMetaMethod>

// The dialog of the information display: its window, its slots, and how it is opened.

class TestEditInfoDialog : public TestBase
{
    Q_OBJECT

private slots:
    void windowIsAsTold_data();
    void windowIsAsTold();
    void slotsStandInOrder();
    void objectsComeBackWithEachPage();
};

void TestEditInfoDialog::windowIsAsTold_data()
{
    QTest::addColumn<bool>("saveForm");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("url");
    QTest::newRow("editor form") << false << QSize(340, 680) << "qrc:/editinfo.html";
    QTest::newRow("save form") << true << QSize(850, 680) << "qrc:/saveinfoview.html";
}

void TestEditInfoDialog::windowIsAsTold()
{
    QFETCH(bool, saveForm);
    QFETCH(QSize, size);
    EditInfoScene scene;
    scene.host.state().translations.insert("edit information", "Einblendung");
    scene.open(saveForm);
    GUI_EditInfoDialog *dialog = scene.dialog;
    QCOMPARE(dialog->parentWidget(), &scene.mainWidget);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Einblendung"));
    QCOMPARE(dialog->minimumSize(), size);
    QCOMPARE(dialog->maximumSize(), size);
    QVERIFY(!(dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(dialog->webView()->parentWidget(), static_cast<QWidget *>(dialog));
    QVERIFY(scene.show());
    QTEST(dialog->webView()->url().toString(), "url");
}

void TestEditInfoDialog::slotsStandInOrder()
{
    const QStringList properties = {"QString getFontName",
                                    "QString getFontSize",
                                    "bool getBold",
                                    "bool getItalic",
                                    "QString getForegroundColor",
                                    "bool isFixedFontSizeRatio",
                                    "QSize getFixedFontSizeRatioBaseResolution",
                                    "int getAlignment",
                                    "bool getUseBackgroundColor",
                                    "QString getBackgroundColor",
                                    "int getWidth",
                                    "int getIconSize",
                                    "bool getToColumn",
                                    "QString getColumnNum",
                                    "int getColumnSpacing"};
    QStringList expected = {"void populateJavaScriptWindowObject()",
                            "QString getInfoSettingsHtml(int)",
                            "QString getInfoSettingsHtml()",
                            "void changeDisp(QString,bool,int)",
                            "void changeDisp(QString,bool)",
                            "void changeOrder(QString,int)",
                            "void changeOrder(QString)",
                            "void backupFontSettings(int)",
                            "void restoreFontSettings()",
                            "QStringList getFontNameList()",
                            "QStringList getFontSizeList()",
                            "QStringList getToColumnList()",
                            "bool isCollectiveSetting()",
                            "void setCollectiveSetting(bool,bool)",
                            "void setCollectiveSetting(bool)"};
    for (const QString &getter : properties)
        expected += QStringList({getter + "(int)", getter + "()"});
    for (const QString &getter : properties) {
        QString name = getter.section(' ', 1);
        name =
            "void set" + name.mid(name.startsWith("is") ? 2 : 3) + "(" + getter.section(' ', 0, 0);
        expected += QStringList({name + ",bool)", name + ")"});
    }
    expected += QStringList({"bool getWithinImage()",
                             "void setWithinImage(bool,bool)",
                             "void setWithinImage(bool)",
                             "bool getDisplayBlankLine()",
                             "void setDisplayBlankLine(bool)",
                             "void editComment()",
                             "void setLogoPath()",
                             "void execTimeCodeSettingDialog()",
                             "void editCustom()",
                             "void editShutterDispFormat()",
                             "void editRectimeDispFormat()",
                             "void editRecordRateDispFormat()",
                             "void editFrameDispFormat()",
                             "QString getThumbnail(int,int)",
                             "QString getThumbnail(int)",
                             "QString getThumbnail()",
                             "QList<int> getThumbnailResolution()",
                             "QString getResolutionStr()",
                             "QString getExportLanguage()",
                             "void writeFontOK()",
                             "void writeFontCancel()",
                             "void reset()",
                             "bool confirm(QString)",
                             "void ok()",
                             "void cancel()",
                             "QString getStyle()",
                             "QString translate(QString)",
                             "bool onConvertParameterEditDialog()"});
    QCOMPARE(expected.size(), 103);

    const QMetaObject &meta = GUI_EditInfoDialog::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).access(), QMetaMethod::Public);
        methods.append(QString::fromLatin1(meta.method(i).typeName()) + " " +
                       QString::fromLatin1(meta.method(i).methodSignature()));
    }
    QCOMPARE(methods, expected);
}

void TestEditInfoDialog::objectsComeBackWithEachPage()
{
    for (bool saveForm : {false, true}) {
        EditInfoScene scene(saveForm);
        QVERIFY(scene.show());
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(scene.page->call("typeof editInfo + app.objectName"),
                     QStringLiteral("\"objectapp\""));
            scene.dialog->webView()->reload();
            QVERIFY(scene.page->waitLoaded());
            QCOMPARE(scene.journal(), QStringList({"appScriptObject()"}));
        }
    }
}

int main(int argc, char **argv)
{
    TestEditInfoDialog test;
    return runTest(argc, argv, test);
}

#include "test_edit_info_dialog.moc"
