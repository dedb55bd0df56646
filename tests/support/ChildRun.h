#pragma once

#include <QByteArray>

#include <functional>

/// Work in a process of its own, whose limits and rights may be taken away.
namespace ChildRun {

/// What `work` gives in a copy of this process, which ends behind it; "crashed" when it ended on
/// the way. The copy has no event loop, and only the thread that calls.
QByteArray run(const std::function<QByteArray()> &work);

/// In the child: no file grows beyond so many bytes, as on a disk that is full.
void limitFileSize(quint64 bytes);

/// In the child: the rights of an ordinary user, whom permissions stop.
void dropRights();

}
