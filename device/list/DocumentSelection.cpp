#include "device/list/DocumentSelection.h"

#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"

namespace {

// A member that goes while others are worked on is known by its place in memory alone.
template <typename Work>
void forOtherMembers(HostServices *host, DOC_Interface *doc, const Work &work)
{
    const QList<DOC_Interface *> members = doc->groupMembers();
    for (DOC_Interface *member : members) {
        if (member == doc)
            continue;
        const DOCKEY key = host->documentKeyOf(member);
        if (key != NoDocKey)
            work(member, key);
    }
}

}

namespace DocumentSelection {

DOCKEY keyOf(const QVariant &pageKey)
{
    return pageKey.toULongLong();
}

DOC_Interface *selectable(HostServices *host, DOCKEY key)
{
    DOC_Interface *doc = host->deviceByKey(key, true);
    return doc && doc->isSelectable() ? doc : nullptr;
}

void select(HostServices *host, DOC_Interface *doc, DOCKEY key)
{
    host->setCurrentDoc(key, true);
    doc->setSelected(true);
}

void selectGroup(HostServices *host, DOC_Interface *doc)
{
    forOtherMembers(host, doc, [](DOC_Interface *member, DOCKEY) {
        if (member->isSelectable())
            member->setSelected(true);
    });
}

void unselectGroup(HostServices *host, DOC_Interface *doc)
{
    forOtherMembers(host, doc, [host](DOC_Interface *, DOCKEY key) { host->unselectDoc(key); });
}

}
