#pragma once

#include "bridge/page/PageProof.h"

/// An object that script calls, and that may have to go while script has not returned from it.
///
/// Its owner deletes it by remove(), or holds it by PageObjectOwner: one whose slot may be on the
/// stack stays until script has returned. Without a meta-object of its own: pages see none of this.
/// GUI thread.
class PageObject : public PageProof<QObject>
{
public:
    /// Deletes the object, null too; at once unless a call of script may be on the stack.
    static void remove(PageObject *object);

    /// Every call of script comes this way. Not for use.
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    int m_callLevel = -1; ///< lowest level of event loops that it was called in; -1: never
};

/// Deletes by PageObject::remove().
struct PageObjectOwner
{
    void operator()(PageObject *object) const { PageObject::remove(object); }
};
