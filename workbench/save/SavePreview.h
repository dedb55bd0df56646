#pragma once

#include "bridge/page/PageProof.h"

#include <QString>
#include <QVariantList>

class StandInHost;

/// What the save pages show beside what their mediators tell: the path of a save with the parts
/// that it is joined from, and what is to be said about it.
///
/// Each page that the host shows a mediator to sees it as `savePreview`. It leaves settings, plan
/// and disk as they are. A failure of the host goes to its errorHandler(), and the answer is
/// neutral. GUI thread.
class SavePreview : public PageProof<QObject>
{
    Q_OBJECT

public:
    /// The host outlives it.
    explicit SavePreview(StandInHost &host, QObject *parent = nullptr);

    /// The time now, for path(): one that a page takes once is the same in all its names.
    Q_INVOKABLE QString now() const;

    /// The path that a save of this mode takes for a partition of a document (its key as text;
    /// without such a document as if none were selected), as JSON text. `before`: the keys of the
    /// documents that the batch saves before it. `time`: what now() gave. The record has
    ///
    /// "base", "directory", "path" and "thumbnail": texts, as in ComposedPath;
    /// "group", "sub" and "file": "text", "name", "number", "time", and of the search for the
    /// number "next" (0: none was searched), "onDisk", "planned", and "digits" of the number;
    /// "isGroupFixed": whether the batch has fixed the group directory before;
    /// "length": characters of the path;
    /// "refusal": why the save does not take it, "name", "path" or "thumbnail", empty when it does;
    /// "warnings": a list of "kind", "part" ("base", "group", "sub", "file") and "detail", as in
    /// PathWarning; kinds are "noFolder", "missingFolder", "exists", "blank", "dot", "time",
    /// "forbidden", "bytes" and "volume";
    /// "volume" and "freeOnVolume": where the target lies, and the size text of what is free there;
    /// "toldVolume": the volume of the free space that the mediator tells.
    ///
    /// Empty text on failure.
    Q_INVOKABLE QString path(int mode, const QString &key, int partitionNo,
                             const QVariantList &before, const QString &time);

    /// The items of information that a file's name can have, as JSON text: a list of "id" and
    /// "label" in the order in which they are shown elsewhere. Those of a live picture and those
    /// without a text are left out. Empty text on failure.
    Q_INVOKABLE QString nameDetails();

    /// The characters of a name, or of a path, that none may hold, each once; of the names "." and
    /// ".." the whole name.
    Q_INVOKABLE QString forbiddenInName(const QString &name) const;
    Q_INVOKABLE QString forbiddenInPath(const QString &path) const;

private:
    StandInHost &m_host;
};
