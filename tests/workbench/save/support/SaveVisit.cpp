#include "tests/workbench/save/support/SaveVisit.h"

#include "bridge/page/GUI_WebView.h"
#include "workbench/tour/PageHand.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace PageHand;

SaveVisit::SaveVisit()
{
    for (int i = 0; i < 2; ++i)
        host.addCamera()->state().partitions = {{1, "A", 100, 1000}};
    host.setMode(StandInHost::Mode::Memory);
    for (const char *family : {"export", "convert", "snap", "report", "layout"}) {
        set(QString("%1/dir").arg(family), folder.path());
        set(QString("%1/filename").arg(family), "");
        set(QString("%1/filenameaddnumber").arg(family), false);
    }
    set("export/filename", "Shot");
}

void SaveVisit::numberFiles(const QString &family)
{
    set(family + "/filenameaddnumber", true);
    set(family + "/filenameaddnumberformat", "");
    if (family != "report") {
        set(family + "/filenameaddnumbercameranodigits", 0);
        set(family + "/filenameaddnumberheadnodigits", 0);
    }
    set(family + "/filenameaddnumbersessionnodigits", 4);
}

void SaveVisit::touch(const QString &name)
{
    QFile file(folder.filePath(name));
    QDir().mkpath(QFileInfo(file).path());
    QVERIFY(file.open(QIODevice::WriteOnly));
}

QString shownPath(GUI_WebView *view)
{
    return read(view, "Array.from(document.querySelectorAll('#path .piece, #path .joint'))"
                      ".filter(function (each) {"
                      "    return !each.classList.contains('base');"
                      "})"
                      ".map(function (each) { return each.textContent; }).join('')")
        .toString();
}

QString shownParts(GUI_WebView *view)
{
    return read(view, "Array.from(document.querySelectorAll('#path .piece:not(.base)'))"
                      ".map(function (each) {"
                      "    return each.dataset.kind + '=' + each.textContent;"
                      "}).join(' ')")
        .toString();
}

QStringList linesOf(GUI_WebView *view, const QString &id)
{
    if (!isShown(view, '#' + id))
        return {};
    return read(view, "Array.from(document.querySelectorAll('#" + id +
                          " p')).map(function (each) { return each.textContent; })")
        .toStringList();
}

bool waitForPath(GUI_WebView *view, const QString &path)
{
    return QTest::qWaitFor([&] { return shownPath(view) == path; });
}
