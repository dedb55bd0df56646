#pragma once

#include <QObject>

/// A base of objects that pages see: script that calls deleteLater() on one deletes nothing, so
/// that its owner alone decides when it goes, by `delete`, deleteLater() or Qt::WA_DeleteOnClose.
///
/// The engine reaches a slot through qt_metacall(), the owner calls it directly. `Base` is QObject
/// or derived from it; there is no meta-object of its own, pages see none of this.
template <typename Base> class PageProof : public Base
{
public:
    using Base::Base;

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        static const int deletion = QObject::staticMetaObject.indexOfSlot("deleteLater()");
        if (call == QMetaObject::InvokeMetaMethod && id == deletion)
            return -1;
        return Base::qt_metacall(call, id, arguments);
    }
};
