#include "workbench/base/Options.h"

#include "standin/network/NetworkFile.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

constexpr int MaximumCameras = 16;

Options error(const QString &text)
{
    Options options;
    options.action = Options::Action::Error;
    options.text = text + QStringLiteral("\nTry --help.\n");
    return options;
}

}

Options Options::parse(const QStringList &arguments)
{
    const QCommandLineOption plugins("plugins", "Load the tools of this folder.", "DIR");
    const QCommandLineOption settings("settings", "Keep the settings in this INI file.", "FILE");
    const QCommandLineOption pages(
        "pages", "Take the pages from this folder, and load one anew when its file changes.",
        "DIR");
    const QCommandLineOption network("network", "Find cameras in the network of this JSON file.",
                                     "FILE");
    const QCommandLineOption cameras("cameras", "Start with this many cameras, 0 to 16.", "N", "2");
    const QCommandLineOption open("open", "Open a folder of pictures as a recording.", "FOLDER");
    const QCommandLineOption style("style", "Use the light or the dark style.", "light|dark");
    const QCommandLineOption tour(
        "tour", "Walk through the workbench, write a picture of each step into this folder, end.",
        "DIR");
    const QCommandLineOption walk("walk", "With --tour: take this walk alone.", "NAME");
    const QCommandLineOption help({"h", "help"}, "Print this text.");

    QCommandLineParser parser;
    parser.setApplicationDescription("Cameras, recordings and tools without the cameras.");
    parser.addOptions({plugins, settings, pages, network, cameras, open, style, tour, walk, help});
    if (!parser.parse(arguments))
        return error(parser.errorText());

    Options options;
    if (parser.isSet(help)) {
        options.action = Action::Help;
        options.text = parser.helpText();
        return options;
    }
    if (!parser.positionalArguments().isEmpty())
        return error("Unexpected argument '" + parser.positionalArguments().first() + "'.");

    bool isNumber = false;
    options.cameras = parser.value(cameras).toInt(&isNumber);
    if (!isNumber || options.cameras < 0 || options.cameras > MaximumCameras)
        return error("--cameras wants a number from 0 to 16, not '" + parser.value(cameras) + "'.");
    options.style = parser.value(style).toLower();
    if (parser.isSet(style) && options.style != "light" && options.style != "dark")
        return error("--style wants light or dark, not '" + parser.value(style) + "'.");
    for (const QCommandLineOption &folder : {plugins, settings, pages, network, open, tour, walk}) {
        if (parser.isSet(folder) && parser.value(folder).isEmpty())
            return error("--" + folder.names().first() + " wants a name.");
    }
    const QFileInfo pagesFolder(parser.value(pages));
    if (parser.isSet(pages) && !(pagesFolder.isDir() && pagesFolder.isReadable()))
        return error("--pages wants a folder that can be read, not '" + parser.value(pages) + "'.");
    if (parser.isSet(network)) {
        const QString reason = NetworkFile::read(parser.value(network)).reason;
        if (!reason.isEmpty())
            return error("--network cannot read '" + parser.value(network) + "': " + reason + '.');
    }
    options.pluginFolder = parser.value(plugins);
    options.settingsFile = parser.value(settings);
    options.pagesFolder = parser.value(pages);
    options.networkFile = parser.value(network);
    options.openFolder = parser.value(open);
    options.tourFolder = parser.value(tour);
    options.walk = parser.value(walk);
    return options;
}
