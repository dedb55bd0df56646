#pragma once

#include "bridge/mediator/JS_Mediator.h"

/// What the page of the device list sees: it selects, adds and removes cameras and opened files.
///
/// Keys come from the page as numbers or decimal texts. A key that no document has gives false, and
/// changes nothing. GUI thread.
class JS_Mediator_DeviceList : public JS_Mediator
{
    Q_OBJECT

public:
    using JS_Mediator::JS_Mediator;

public slots:
    /// Makes the document the current one and selects it, when it can be selected.
    void selectDoc(const QVariant &key);

    /// Takes the document out of the selection.
    void unselectDoc(const QVariant &key);

    /// Lets the user add a camera; `connect`: it is connected at once.
    void addDoc(bool connect = true);

    /// Asks the user, then takes the document out of the list. Where it is a head, those of the
    /// same device go with it, and the question says so.
    void deleteDoc(DOCKEY dockey);

    /// Takes all documents out of the list, or out of the selection alone, without a question.
    void deleteAllDocs(bool unselectOnly = false);

    bool isSelectedDoc(const QVariant &key);

    /// Whether it is selected as one of several.
    bool isSelectedMultiDoc(const QVariant &key);

    /// Whether it can be selected and its device has several heads.
    bool isMultiHead(const QVariant &key);

private:
    template <typename Ask> bool askDocument(const char *trace, const QVariant &key, Ask ask);
};
