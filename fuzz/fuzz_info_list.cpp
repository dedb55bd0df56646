#include "FuzzInput.h"

#include "record/display/InfoItemList.h"

#include <cstdio>
#include <cstdlib>

// Random settings of the information display, and random changes of them.

namespace {

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// Words of a setting, and what looks like them.
QString randomText(FuzzInput &input)
{
    static const char *const words[] = {"<hr>", "HR",      ",",           ":", "true", "false",
                                        "Date", "Comment", "FrameNumber", "'", "<b>",  " "};
    constexpr int count = int(sizeof words / sizeof *words);
    QString text;
    for (int length = input.choice(40); length > 0; --length) {
        const int word = input.choice(2 * count);
        text += word < count ? QString(words[word]) : QString(QChar(input.number() & 0xffff));
    }
    return text;
}

std::optional<InfoItem::Target> randomTarget(FuzzInput &input)
{
    const bool saveForm = input.flag();
    return InfoItemList::target(saveForm, input.number());
}

void show(const InfoItemList &list, int group, FuzzInput &input)
{
    const auto target = randomTarget(input);
    const QString label = randomText(input);
    for (const InfoItemList::Entry &entry : list.entries(group, target)) {
        const bool saveForm = target == InfoItem::SaveForm;
        const QString html = InfoItemList::html(entry, saveForm, label, label);
        require(entry.isSeparator ? html.startsWith("<hr") : html.endsWith("</li>"),
                "an entry is one line");
        require(target || !entry.isEnabled, "an unknown mode enables nothing");
        require(!entry.id.contains(',') && !entry.id.contains(':'), "an id is an id");
        require(entry.isSeparator ||
                    html.count("</a>") >= (InfoItemList::hasLink(entry.id) ? 1 : 0),
                "a link is closed");
    }
}

void change(InfoItemList &list, int group, FuzzInput &input)
{
    switch (input.choice(3)) {
    case 0:
        list.read(group, randomText(input));
        break;
    case 1:
        list.setOrder(group, randomText(input));
        break;
    default:
        list.setChecked(randomText(input), input.flag());
        break;
    }
}

}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    InfoItemList list;
    for (int step = 0; step < 50 && !input.isAtEnd(); ++step) {
        const int group = input.flag() ? input.choice(InfoItemList::GroupCount) : input.number();
        change(list, group, input);
        show(list, group, input);

        const QString setting = list.setting(group);
        require(list.isRead(group) || setting.isEmpty(), "what is not read has no setting");
        InfoItemList again;
        again.read(group, setting);
        require(again.setting(group) == setting, "what is stored is read back");
    }
    return 0;
}
