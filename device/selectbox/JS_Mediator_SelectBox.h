#pragma once

#include "bridge/mediator/JS_Mediator.h"

/// What the page of the select box sees: the window fills it by signals, and the page tells what
/// the user has chosen. Each choice closes the box before it takes effect.
class JS_Mediator_SelectBox : public JS_Mediator
{
    Q_OBJECT

public:
    explicit JS_Mediator_SelectBox(HostServices *host);

signals:
    void signalShowPartition(const QVariantList &partitions);
    void signalShowVariable(const QString &variables);
    void signalShowVariableRegist(const QString &variable);
    void signalSetHeight(int height); ///< of the box, in pixels

public slots:
    /// Switches to the partition of this number, when the current document has that many.
    void slotNotifyPartition(const QString &value);

    /// Selects the variable of this number, then goes to the variable page; "go-variable" only goes
    /// there.
    void slotNotifyVariable(const QString &value);

    /// Partition of the current document, from 1; 0 without a document.
    int getCurrentPartition();

    /// Hands a variable to the live control tool, when that is open.
    void slotNotifyVariableRegist(const QString &value);

private:
    void closeBox();
};
