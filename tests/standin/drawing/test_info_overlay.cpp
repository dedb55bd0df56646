#include "standin/drawing/InfoLogo.h"
#include "standin/drawing/InfoOverlay.h"
#include "tests/support/TestLog.h"

#include <QFile>
#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <QTemporaryDir>

using Form = InfoFontSettings::Form;

Q_DECLARE_METATYPE(InfoOverlay::Place)

class TestInfoOverlay : public TestBase
{
    Q_OBJECT

private slots:
    void styleReadsEverySettingOfItsForm();
    void styleWithoutSettingsCanBeRead();
    void alignmentNumbers_data();
    void alignmentNumbers();
    void numbersOutOfRange_data();
    void numbersOutOfRange();
    void columnsNeedTheirSwitch();
    void backgroundNeedsItsSwitch();
    void baseResolutionNeedsItsSwitch();

    void linesStandBelowEachOther();
    void alignmentMovesTheText_data();
    void alignmentMovesTheText();
    void colourAndFontAreObeyed();
    void backgroundFillsTheBlock();
    void withoutLinesThereIsNoBackground();
    void longLineEndsInAnEllipsis();
    void longRightToLeftLineEndsInAnEllipsis();
    void charactersOutsideThePlaneStayWhole();
    void markupIsText();
    void blankLineKeepsItsHeight();
    void columnsAreFilledOneByOne();
    void linesThatDoNotFitAreLeftOut();
    void fewerLinesAreLaidOutAnew();
    void logoHasItsHeight();
    void wideLogoFitsItsColumn();
    void missingLogoDrawsNothing();
    void hugeLogoIsNotRead();

    void groupsStandInTheirPlaces_data();
    void groupsStandInTheirPlaces();
    void captionIsAsWideAsThePicture();
    void bottomGroupsStandOverTheCaption();
    void groupsOutsideStandInStrips();
    void stripsAreBlack();
    void stripsHaveAnEnd();
    void emptyGroupsMakeNoStrips();
    void textTakesTheSameShareAtEverySize_data();
    void textTakesTheSameShareAtEverySize();
    void sizeFollowsTheBaseResolution_data();
    void sizeFollowsTheBaseResolution();
    void groupIsNeverWiderThanThePicture();
    void nothingToComposeIsNoPicture();
};

namespace {

constexpr QSize Picture(640, 480);

InfoStyle plain(int width = 200)
{
    InfoStyle style;
    style.fontName = "DejaVu Sans";
    style.fontSize = 12;
    style.width = width;
    return style;
}

QVector<InfoLine> lines(const QStringList &texts)
{
    QVector<InfoLine> all;
    for (const QString &text : texts)
        all.append({text, false});
    return all;
}

InfoBlock block(const InfoStyle &style, const QStringList &texts)
{
    InfoBlock made(style);
    made.setPlace(Picture, false);
    made.setLines(lines(texts));
    return made;
}

QImage painted(const InfoBlock &block)
{
    QImage image(Picture, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    block.paint(painter, QPointF(0, 0));
    return image;
}

QImage painted(const InfoOverlay &overlay, const QColor &background = Qt::blue)
{
    QImage picture(overlay.picturePlace().size(), QImage::Format_RGB32);
    picture.fill(background);
    return overlay.composed(picture, overlay.canvas());
}

// What stands out from one colour.
QRect ink(const QImage &image, const QColor &background = Qt::black)
{
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    QRect area;
    for (int y = 0; y < pixels.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(pixels.constScanLine(y));
        for (int x = 0; x < pixels.width(); ++x) {
            const int distance = qAbs(qRed(row[x]) - background.red()) +
                                 qAbs(qGreen(row[x]) - background.green()) +
                                 qAbs(qBlue(row[x]) - background.blue());
            if (distance > 120)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

InfoOverlay overlay(InfoOverlay::Place place, const QStringList &texts, bool withinImage = true,
                    const InfoStyle &style = plain())
{
    InfoOverlay made(withinImage);
    made.setPicture(Picture);
    made.setGroup(place, style);
    made.setLines(place, lines(texts));
    return made;
}

double lineHeight(const InfoStyle &style = plain())
{
    return QFontMetricsF(style.font()).height();
}

constexpr double Margin = 4.0; // a third of the font

}

void TestInfoOverlay::styleReadsEverySettingOfItsForm()
{
    QStringList asked;
    const QHash<QString, QVariant> store{
        {"saveinfo/FontName3", "DejaVu Serif"},
        {"saveinfo/FontSize3", "20"},
        {"saveinfo/Bold3", true},
        {"saveinfo/Italic3", true},
        {"saveinfo/ForegroundColor3", "#ff8000"},
        {"saveinfo/Alignment3", "2"},
        {"saveinfo/Width3", "321"},
        {"saveinfo/FixedFontSizeRatio3", true},
        {"saveinfo/FixedFontSizeRatioBaseResolution3", QSize(1024, 768)},
        {"saveinfo/UseBackgroundColor3", true},
        {"saveinfo/BackgroundColor3", "#102030"},
        {"saveinfo/ToColumn3", true},
        {"saveinfo/ColumnNum3", "4"},
        {"saveinfo/ColumnSpacing3", 7}};
    const InfoStyle saved = InfoStyle::read(Form::Save, 3, [&](const QString &key) {
        asked.append(key);
        return store.value(key);
    });
    for (const QString &key : store.keys())
        QVERIFY2(asked.contains(key), qPrintable(key));
    QCOMPARE(asked.size(), store.size());
    QCOMPARE(saved.fontName, QString("DejaVu Serif"));
    QCOMPARE(saved.fontSize, 20);
    QVERIFY(saved.bold && saved.italic);
    QCOMPARE(saved.foreground, QColor(255, 128, 0));
    QCOMPARE(saved.background, QColor(16, 32, 48));
    QCOMPARE(int(saved.alignment), int(Qt::AlignRight));
    QCOMPARE(saved.width, 321);
    QCOMPARE(saved.columns, 4);
    QCOMPARE(saved.columnSpacing, 7);
    QCOMPARE(saved.logoHeight, 0);
    QCOMPARE(saved.baseResolution, QSize(1024, 768));

    const QHash<QString, QVariant> screen{{"info/FontName", "DejaVu Serif"},
                                          {"info/FontSize", "9"},
                                          {"info/Bold", true},
                                          {"info/Italic", true},
                                          {"info/ForegroundColor", "#00ff00"},
                                          {"info/Alignment", "1"},
                                          {"info/Width", "111"},
                                          {"info/IconSize", "32"}};
    asked.clear();
    const InfoStyle live = InfoStyle::read(Form::Editor, 0, [&](const QString &key) {
        asked.append(key);
        return screen.value(key);
    });
    for (const QString &key : screen.keys())
        QVERIFY2(asked.contains(key), qPrintable(key));
    QCOMPARE(asked.size(), screen.size());
    QCOMPARE(live.fontSize, 9);
    QVERIFY(live.bold && live.italic);
    QCOMPARE(live.foreground, QColor(0, 255, 0));
    QCOMPARE(int(live.alignment), int(Qt::AlignHCenter));
    QCOMPARE(live.width, 111);
    QCOMPARE(live.logoHeight, 32);
    QVERIFY(!live.background.isValid());
    QCOMPARE(live.columns, 1);
}

void TestInfoOverlay::styleWithoutSettingsCanBeRead()
{
    const InfoStyle style =
        InfoStyle::read(Form::Save, 1, [](const QString &) { return QVariant(); });
    QCOMPARE(style.fontSize, 12);
    QCOMPARE(style.width, 200);
    QCOMPARE(style.foreground, QColor(Qt::white));
    QVERIFY(!style.background.isValid());
    QCOMPARE(int(style.alignment), int(Qt::AlignLeft));
}

void TestInfoOverlay::alignmentNumbers_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("alignment");
    QTest::newRow("0") << QVariant("0") << int(Qt::AlignLeft);
    QTest::newRow("1") << QVariant("1") << int(Qt::AlignHCenter);
    QTest::newRow("2") << QVariant("2") << int(Qt::AlignRight);
    QTest::newRow("3") << QVariant("3") << int(Qt::AlignLeft);
    QTest::newRow("-1") << QVariant("-1") << int(Qt::AlignLeft);
    QTest::newRow("no number") << QVariant("right") << int(Qt::AlignLeft);
}

void TestInfoOverlay::alignmentNumbers()
{
    QFETCH(QVariant, stored);
    const InfoStyle style = InfoStyle::read(Form::Editor, 0, [&](const QString &key) {
        return key == "info/Alignment" ? stored : QVariant();
    });
    QTEST(int(style.alignment), "alignment");
}

void TestInfoOverlay::numbersOutOfRange_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("fontSize");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("columns");
    QTest::newRow("zero") << "0" << 12 << 200 << 1;
    QTest::newRow("below zero") << "-5" << 12 << 200 << 1;
    QTest::newRow("no number") << "big" << 12 << 200 << 1;
    QTest::newRow("empty") << "" << 12 << 200 << 1;
    QTest::newRow("largest") << "2147483647" << 1000 << 100000 << 10;
    QTest::newRow("one") << "1" << 1 << 1 << 1;
}

void TestInfoOverlay::numbersOutOfRange()
{
    QFETCH(QString, stored);
    const InfoStyle style = InfoStyle::read(Form::Save, 0, [&](const QString &key) {
        const bool isNumber = key.contains("Size") || key.contains("Width") || key.contains("Num");
        return isNumber ? QVariant(stored) : QVariant(key.contains("ToColumn"));
    });
    QTEST(style.fontSize, "fontSize");
    QTEST(style.width, "width");
    QTEST(style.columns, "columns");
}

void TestInfoOverlay::columnsNeedTheirSwitch()
{
    const InfoStyle style = InfoStyle::read(Form::Save, 0, [](const QString &key) {
        return key == "saveinfo/ColumnNum0" ? QVariant("4") : QVariant();
    });
    QCOMPARE(style.columns, 1);
}

void TestInfoOverlay::backgroundNeedsItsSwitch()
{
    const InfoStyle style = InfoStyle::read(Form::Save, 0, [](const QString &key) {
        return key == "saveinfo/BackgroundColor0" ? QVariant("#ff0000") : QVariant();
    });
    QVERIFY(!style.background.isValid());
}

void TestInfoOverlay::baseResolutionNeedsItsSwitch()
{
    const InfoStyle style = InfoStyle::read(Form::Save, 0, [](const QString &key) {
        return key.contains("Base") ? QVariant(QSize(320, 240)) : QVariant();
    });
    QCOMPARE(style.scaleFor(Picture), 1.0);
}

void TestInfoOverlay::linesStandBelowEachOther()
{
    const InfoBlock one = block(plain(), {"HHH"});
    const InfoBlock three = block(plain(), {"HHH", "HHH", "HHH"});
    QCOMPARE(one.size(), QSizeF(200, lineHeight() + 2 * Margin));
    QCOMPARE(three.size(), QSizeF(200, 3 * lineHeight() + 2 * Margin));
    const QRect first = ink(painted(one));
    const QRect all = ink(painted(three));
    QCOMPARE(all.topLeft(), first.topLeft());
    QCOMPARE(all.width(), first.width());
    QVERIFY(qAbs(all.height() - first.height() - 2 * lineHeight()) <= 1.5);
    QVERIFY(first.left() >= int(Margin) && first.left() <= int(Margin) + 2);
}

void TestInfoOverlay::alignmentMovesTheText_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<double>("middle"); // of the text
    const double width = QFontMetricsF(plain().font()).horizontalAdvance("HHHH");
    QTest::newRow("left") << int(Qt::AlignLeft) << Margin + width / 2;
    QTest::newRow("centre") << int(Qt::AlignHCenter) << 100.0;
    QTest::newRow("right") << int(Qt::AlignRight) << 200.0 - Margin - width / 2;
}

void TestInfoOverlay::alignmentMovesTheText()
{
    QFETCH(int, alignment);
    QFETCH(double, middle);
    InfoStyle style = plain();
    style.alignment = Qt::Alignment(alignment);
    const QRect area = ink(painted(block(style, {"HHHH"})));
    QVERIFY(qAbs((area.left() + area.right() + 1) / 2.0 - middle) <= 1.0);
}

void TestInfoOverlay::colourAndFontAreObeyed()
{
    InfoStyle style = plain();
    style.foreground = QColor(255, 0, 0);
    const QImage image = painted(block(style, {"HHHH"}));
    int red = 0;
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 200; ++x) {
            const QColor pixel = image.pixelColor(x, y);
            QVERIFY(pixel.green() == 0 && pixel.blue() == 0);
            red += pixel.red() > 200 ? 1 : 0;
        }
    }
    QVERIFY(red > 20);

    const QRect usual = ink(painted(block(plain(), {"HHHH"})));
    style = plain();
    style.fontSize = 24;
    const QRect larger = ink(painted(block(style, {"HHHH"})));
    QVERIFY(qAbs(larger.height() - 2 * usual.height()) <= 2);
    style = plain();
    style.bold = true;
    QVERIFY(ink(painted(block(style, {"HHHH"}))).width() > usual.width());
    style = plain();
    style.italic = true;
    QVERIFY(painted(block(style, {"HHHH"})) != painted(block(plain(), {"HHHH"})));
}

void TestInfoOverlay::backgroundFillsTheBlock()
{
    InfoStyle style = plain();
    style.background = QColor(0, 0, 255);
    const InfoBlock shown = block(style, {"HHHH", ""});
    const QImage image = painted(shown);
    const QSize size(int(shown.size().width()), int(shown.size().height()));
    QCOMPARE(image.pixelColor(0, 0), QColor(0, 0, 255));
    QCOMPARE(image.pixelColor(size.width() - 1, size.height() - 1), QColor(0, 0, 255));
    QCOMPARE(image.pixelColor(size.width() + 1, 1), QColor(Qt::black));
    QCOMPARE(image.pixelColor(1, size.height() + 1), QColor(Qt::black));
}

void TestInfoOverlay::withoutLinesThereIsNoBackground()
{
    InfoStyle style = plain();
    style.background = QColor(0, 0, 255);
    for (const QStringList &texts : {QStringList(), QStringList(""), QStringList({"", ""})}) {
        const InfoBlock shown = block(style, texts);
        QVERIFY(shown.size().isEmpty());
        QCOMPARE(ink(painted(shown)), QRect());
    }
}

void TestInfoOverlay::longLineEndsInAnEllipsis()
{
    const QString text = QString("wide ").repeated(40);
    const InfoBlock shown = block(plain(), {text, "short"});
    const QString first = shown.shownTexts().at(0);
    QVERIFY(first.endsWith(QChar(0x2026)));
    QVERIFY(first.startsWith("wide wide"));
    QVERIFY(text.startsWith(first.chopped(1)));
    QCOMPARE(shown.shownTexts().at(1), QString("short"));
    QVERIFY(ink(painted(shown)).right() < 200 - int(Margin) + 1);
    // A wider block shows more of it.
    QVERIFY(block(plain(300), {text}).shownTexts().at(0).size() > first.size());
}

void TestInfoOverlay::longRightToLeftLineEndsInAnEllipsis()
{
    const QString word = QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D ");
    const InfoBlock shown = block(plain(), {word.repeated(40), word.trimmed()});
    QVERIFY(shown.shownTexts().at(0).endsWith(QChar(0x2026)));
    QCOMPARE(shown.shownTexts().at(1), word.trimmed());
    const QRect area = ink(painted(shown));
    QVERIFY(area.left() >= int(Margin) - 1 && area.right() <= 200 - int(Margin) + 1);
}

void TestInfoOverlay::charactersOutsideThePlaneStayWhole()
{
    const QString camera = QString::fromUcs4(U"\U0001F3A5");
    QCOMPARE(block(plain(), {camera}).shownTexts(), QStringList(camera));
    const QString cut = block(plain(), {camera.repeated(100)}).shownTexts().at(0);
    QVERIFY(cut.endsWith(QChar(0x2026)));
    QCOMPARE(cut.chopped(1), camera.repeated((cut.size() - 1) / 2));
}

void TestInfoOverlay::markupIsText()
{
    const QString markup = "<b>HH</b>&amp;";
    const QRect area = ink(painted(block(plain(), {markup})));
    const double width = QFontMetricsF(plain().font()).horizontalAdvance(markup);
    QVERIFY(qAbs(area.width() - width) <= 3.0);
}

void TestInfoOverlay::blankLineKeepsItsHeight()
{
    const QRect apart = ink(painted(block(plain(), {"HHH", "", "HHH"})));
    const QRect filled = ink(painted(block(plain(), {"HHH", "HHH", "HHH"})));
    QCOMPARE(apart, filled);
}

void TestInfoOverlay::columnsAreFilledOneByOne()
{
    InfoStyle style = plain(320);
    style.columns = 2;
    style.columnSpacing = 12;
    const InfoBlock shown = block(style, {"HH", "HH", "HH", "HH", "HH"});
    QCOMPARE(shown.size(), QSizeF(320, 3 * lineHeight() + 2 * Margin));
    const QImage image = painted(shown);
    const int column = int(320 - 2 * Margin - 12) / 2; // 150 pixels each
    const QRect left = ink(image.copy(0, 0, int(Margin) + column, 480));
    const QRect right = ink(image.copy(int(Margin) + column + 12, 0, column, 480));
    QVERIFY(left.height() > right.height()); // three lines, then two
    QVERIFY(qAbs(left.left() - Margin - right.left()) <= 1.0);
    // A line has the width of its column.
    const QString text = QString("wide ").repeated(20);
    QVERIFY(block(style, {text}).shownTexts().at(0).size() <
            block(plain(320), {text}).shownTexts().at(0).size());
}

void TestInfoOverlay::linesThatDoNotFitAreLeftOut()
{
    QStringList texts;
    for (int i = 0; i < 100; ++i)
        texts.append(QString::number(i));
    InfoBlock shown(plain());
    shown.setPlace(QSizeF(640, 4 * lineHeight() + 2 * Margin), false);
    shown.setLines(lines(texts));
    QCOMPARE(shown.shownTexts(), QStringList({"0", "1", "2", "3"}));
    QCOMPARE(shown.size().height(), 4 * lineHeight() + 2 * Margin);
    shown.setPlace(QSizeF(640, 4 * lineHeight() + 2 * Margin - 0.5), false);
    QCOMPARE(shown.shownTexts(), QStringList({"0", "1", "2"}));
    shown.setPlace(QSizeF(640, 1.0), false);
    QCOMPARE(shown.shownTexts(), QStringList());
    QVERIFY(shown.size().isEmpty());
}

void TestInfoOverlay::fewerLinesAreLaidOutAnew()
{
    InfoBlock shown = block(plain(), {"a", "b", "c"});
    shown.setLines(lines({"a"}));
    QCOMPARE(shown.shownTexts(), QStringList({"a"}));
    QCOMPARE(shown.size().height(), lineHeight() + 2 * Margin);
    shown.setLines({});
    QVERIFY(shown.size().isEmpty());
    shown.setLines(lines({"d", "e"}));
    QCOMPARE(shown.shownTexts(), QStringList({"d", "e"}));
    shown.setPlace(QSizeF(20, 480), false); // other than before
    QVERIFY(shown.size().width() == 20);
}

void TestInfoOverlay::logoHasItsHeight()
{
    QImage logo(40, 20, QImage::Format_RGB32);
    logo.fill(Qt::red);
    InfoStyle style = plain();
    InfoBlock own(style, logo);
    own.setPlace(Picture, false);
    own.setLines({{QString(), true}, {"HH", false}});
    QCOMPARE(own.size().height(), 20 + lineHeight() + 2 * Margin);
    QCOMPARE(painted(own).copy(4, 4, 40, 20), logo);

    style.logoHeight = 30;
    style.alignment = Qt::AlignRight;
    InfoBlock high(style, logo);
    high.setPlace(Picture, false);
    high.setLines({{QString(), true}});
    QCOMPARE(ink(painted(high)), QRect(200 - 4 - 60, 4, 60, 30));
}

void TestInfoOverlay::wideLogoFitsItsColumn()
{
    QImage logo(384, 100, QImage::Format_RGB32);
    logo.fill(Qt::red);
    InfoBlock shown(plain(), logo);
    shown.setPlace(Picture, false);
    shown.setLines({{QString(), true}});
    QCOMPARE(ink(painted(shown)), QRect(4, 4, 192, 50));
}

void TestInfoOverlay::missingLogoDrawsNothing()
{
    QTemporaryDir dir;
    QFile text(dir.filePath("text.png"));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    for (const QString &path : QStringList{"", "/no/such/logo.png", dir.path(), text.fileName()})
        QVERIFY2(InfoLogo::read(path).isNull(), qPrintable(path));
    InfoBlock shown(plain(), QImage());
    shown.setPlace(Picture, false);
    shown.setLines({{QString(), true}});
    QVERIFY(shown.size().isEmpty());
    QCOMPARE(ink(painted(shown)), QRect());

    const QString good = dir.filePath("logo.dat"); // whatever its name
    QImage logo(40, 20, QImage::Format_RGB32);
    logo.fill(Qt::red);
    QVERIFY(logo.save(good, "PNG"));
    QCOMPARE(InfoLogo::read(good).convertToFormat(QImage::Format_RGB32), logo);
}

void TestInfoOverlay::hugeLogoIsNotRead()
{
    // A bitmap of 30000 x 30000 pixels, as its head says.
    QByteArray head("BM\x36\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0", 18);
    head += QByteArray("\x30\x75\0\0\x30\x75\0\0\1\0\x18\0", 12) + QByteArray(24, '\0');
    QTemporaryDir dir;
    QFile file(dir.filePath("huge.bmp"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(head);
    file.close();
    QVERIFY(InfoLogo::read(file.fileName()).isNull());
}

void TestInfoOverlay::groupsStandInTheirPlaces_data()
{
    QTest::addColumn<InfoOverlay::Place>("place");
    QTest::addColumn<QPointF>("topLeft");
    const double bottom = 480 - lineHeight() - 2 * Margin;
    QTest::newRow("top left") << InfoOverlay::TopLeft << QPointF(0, 0);
    QTest::newRow("top") << InfoOverlay::Top << QPointF(220, 0);
    QTest::newRow("top right") << InfoOverlay::TopRight << QPointF(440, 0);
    QTest::newRow("bottom left") << InfoOverlay::BottomLeft << QPointF(0, bottom);
    QTest::newRow("bottom") << InfoOverlay::Bottom << QPointF(220, bottom);
    QTest::newRow("bottom right") << InfoOverlay::BottomRight << QPointF(440, bottom);
}

void TestInfoOverlay::groupsStandInTheirPlaces()
{
    QFETCH(InfoOverlay::Place, place);
    QFETCH(QPointF, topLeft);
    const InfoOverlay shown = overlay(place, {"HH"});
    QCOMPARE(shown.canvas(), Picture);
    QCOMPARE(shown.picturePlace(), QRect(QPoint(0, 0), Picture));
    QCOMPARE(shown.groupPlace(place), QRectF(topLeft, QSizeF(200, lineHeight() + 2 * Margin)));
    const QRect area = ink(painted(shown), Qt::blue);
    QVERIFY(shown.groupPlace(place).contains(area));
    QVERIFY(!area.isEmpty());
}

void TestInfoOverlay::captionIsAsWideAsThePicture()
{
    const InfoOverlay shown = overlay(InfoOverlay::Caption, {"HH"});
    const double height = lineHeight() + 2 * Margin;
    QCOMPARE(shown.groupPlace(InfoOverlay::Caption), QRectF(0, 480 - height, 640, height));
}

void TestInfoOverlay::bottomGroupsStandOverTheCaption()
{
    InfoOverlay shown = overlay(InfoOverlay::Caption, {"HH"});
    shown.setGroup(InfoOverlay::BottomRight, plain());
    shown.setLines(InfoOverlay::BottomRight, lines({"HH", "HH"}));
    QCOMPARE(shown.groupPlace(InfoOverlay::BottomRight).bottom(),
             shown.groupPlace(InfoOverlay::Caption).top());
    QCOMPARE(shown.groupPlace(InfoOverlay::BottomRight).right(), 640.0);
}

void TestInfoOverlay::groupsOutsideStandInStrips()
{
    InfoOverlay shown = overlay(InfoOverlay::TopRight, {"a", "b"}, false);
    shown.setGroup(InfoOverlay::TopLeft, plain());
    shown.setLines(InfoOverlay::TopLeft, lines({"a"}));
    shown.setGroup(InfoOverlay::Bottom, plain());
    shown.setLines(InfoOverlay::Bottom, lines({"a", "b", "c"}));
    shown.setGroup(InfoOverlay::Caption, plain());
    shown.setLines(InfoOverlay::Caption, lines({"a"}));
    const auto strip = [](int count) { return qCeil(count * lineHeight() + 2 * Margin); };
    QCOMPARE(shown.picturePlace(), QRect(QPoint(0, strip(2)), Picture));
    QCOMPARE(shown.canvas(), QSize(640, strip(2) + 480 + strip(3) + strip(1)));
    QCOMPARE(shown.groupPlace(InfoOverlay::TopLeft).topLeft(), QPointF(0, 0));
    QCOMPARE(shown.groupPlace(InfoOverlay::TopRight).topLeft(), QPointF(440, 0));
    QCOMPARE(shown.groupPlace(InfoOverlay::Bottom).topLeft(), QPointF(220, strip(2) + 480));
    QCOMPARE(shown.groupPlace(InfoOverlay::Caption).bottom(), double(shown.canvas().height()));
    for (const auto place :
         {InfoOverlay::TopLeft, InfoOverlay::TopRight, InfoOverlay::Bottom, InfoOverlay::Caption})
        QVERIFY(!shown.groupPlace(place).intersects(QRectF(shown.picturePlace())));
}

void TestInfoOverlay::stripsAreBlack()
{
    InfoOverlay shown = overlay(InfoOverlay::TopLeft, {"H"}, false);
    shown.setGroup(InfoOverlay::Bottom, plain());
    shown.setLines(InfoOverlay::Bottom, lines({"H"}));
    const QImage image = painted(shown);
    QCOMPARE(image.size(), shown.canvas());
    QCOMPARE(image.pixelColor(639, 0), QColor(Qt::black));
    QCOMPARE(image.pixelColor(639, image.height() - 1), QColor(Qt::black));
    QCOMPARE(image.copy(shown.picturePlace()).pixelColor(0, 0), QColor(Qt::blue));
    QCOMPARE(image.copy(shown.picturePlace()).pixelColor(639, 479), QColor(Qt::blue));
}

void TestInfoOverlay::stripsHaveAnEnd()
{
    QStringList texts;
    for (int i = 0; i < 500; ++i)
        texts.append("a");
    QVERIFY(overlay(InfoOverlay::TopLeft, texts, false).canvas().height() <= 2 * 480);
}

void TestInfoOverlay::emptyGroupsMakeNoStrips()
{
    QCOMPARE(overlay(InfoOverlay::TopLeft, {}, false).canvas(), Picture);
    QCOMPARE(overlay(InfoOverlay::Caption, {""}, false).canvas(), Picture);
    InfoOverlay none(false);
    none.setPicture(Picture);
    none.setLines(InfoOverlay::Top, lines({"a"})); // there is no such group
    QCOMPARE(none.canvas(), Picture);
    QCOMPARE(none.groupPlace(InfoOverlay::Top), QRectF());
}

void TestInfoOverlay::textTakesTheSameShareAtEverySize_data()
{
    QTest::addColumn<InfoOverlay::Place>("place");
    QTest::addColumn<bool>("withinImage");
    QTest::addColumn<double>("part");
    for (const bool within : {true, false}) {
        for (const double part : {0.25, 0.4, 0.5, 2.0}) {
            QTest::addRow("caption %d %g", within, part) << InfoOverlay::Caption << within << part;
            QTest::addRow("top left %d %g", within, part) << InfoOverlay::TopLeft << within << part;
            QTest::addRow("bottom right %d %g", within, part)
                << InfoOverlay::BottomRight << within << part;
        }
    }
}

// Of a small preview as of the full picture.
void TestInfoOverlay::textTakesTheSameShareAtEverySize()
{
    QFETCH(InfoOverlay::Place, place);
    QFETCH(bool, withinImage);
    QFETCH(double, part);
    InfoStyle style = plain(240);
    style.fontSize = 20;
    const InfoOverlay shown =
        overlay(place, {"HHHH HHHH HHHH HHHH HHHH HHHH HHHH HHHH HHHH", "HHH"}, withinImage, style);
    QImage picture(Picture, QImage::Format_RGB32);
    picture.fill(Qt::black);
    const QRect full = ink(shown.composed(picture, shown.canvas()));
    const QSize size = (QSizeF(shown.canvas()) * part).toSize();
    const QRect small = ink(shown.composed(picture, size));
    const double pixel = 1.0 + 1.0 / part; // antialiased edges of either picture
    QVERIFY(qAbs(small.left() / part - full.left()) <= pixel);
    QVERIFY(qAbs(small.top() / part - full.top()) <= pixel);
    QVERIFY(qAbs((small.right() + 1) / part - full.right() - 1) <= pixel);
    QVERIFY(qAbs((small.bottom() + 1) / part - full.bottom() - 1) <= pixel);
    // The same letters before the ellipsis, so the text is as long.
    QVERIFY(full.width() > 200);
}

void TestInfoOverlay::sizeFollowsTheBaseResolution_data()
{
    QTest::addColumn<QSize>("base");
    QTest::addColumn<double>("scale");
    QTest::newRow("none") << QSize() << 1.0;
    QTest::newRow("not set") << QSize(-1, -1) << 1.0;
    QTest::newRow("the same") << QSize(640, 480) << 1.0;
    QTest::newRow("smaller") << QSize(320, 240) << 2.0;
    QTest::newRow("larger") << QSize(1280, 960) << 0.5;
    QTest::newRow("of another shape") << QSize(1024, 240) << 2.0;
}

void TestInfoOverlay::sizeFollowsTheBaseResolution()
{
    QFETCH(QSize, base);
    QFETCH(double, scale);
    InfoStyle style = plain(200);
    style.baseResolution = base;
    const InfoOverlay shown = overlay(InfoOverlay::BottomRight, {"HHHH"}, true, style);
    const QRectF place = shown.groupPlace(InfoOverlay::BottomRight);
    QCOMPARE(place.size(), QSizeF(200, lineHeight() + 2 * Margin) * scale);
    QCOMPARE(place.bottomRight(), QPointF(640, 480));
    const QRect usual = ink(painted(overlay(InfoOverlay::BottomRight, {"HHHH"})), Qt::blue);
    const QRect scaled = ink(painted(shown), Qt::blue);
    QVERIFY(qAbs(scaled.height() - usual.height() * scale) <= 2.0);
    QVERIFY(qAbs(scaled.width() - usual.width() * scale) <= 3.0);
}

void TestInfoOverlay::groupIsNeverWiderThanThePicture()
{
    const InfoOverlay shown = overlay(InfoOverlay::TopRight, {"a"}, true, plain(5000));
    QCOMPARE(shown.groupPlace(InfoOverlay::TopRight).left(), 0.0);
    QCOMPARE(shown.groupPlace(InfoOverlay::TopRight).width(), 640.0);
    // A picture that becomes smaller later, too.
    InfoOverlay later = overlay(InfoOverlay::TopRight, {"a"});
    later.setPicture(QSize(100, 80));
    QCOMPARE(later.groupPlace(InfoOverlay::TopRight).width(), 100.0);
}

void TestInfoOverlay::nothingToComposeIsNoPicture()
{
    const InfoOverlay shown = overlay(InfoOverlay::TopLeft, {"a"});
    QImage picture(Picture, QImage::Format_RGB32);
    picture.fill(Qt::black);
    QVERIFY(shown.composed(QImage(), Picture).isNull());
    QVERIFY(shown.composed(picture, QSize()).isNull());
    QVERIFY(shown.composed(picture, QSize(0, 10)).isNull());
}

int main(int argc, char *argv[])
{
    TestInfoOverlay test;
    return runTest(argc, argv, test);
}

#include "test_info_overlay.moc"
