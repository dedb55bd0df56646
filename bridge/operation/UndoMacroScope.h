#pragma once

class HostServices;

/// Makes one undo step, without a text of its own, of what changes while it lives. A failure at its
/// end goes to the host's errorHandler(). GUI thread.
class UndoMacroScope
{
public:
    /// Throws what the host throws; then no step was begun.
    explicit UndoMacroScope(HostServices *host);
    ~UndoMacroScope();

    UndoMacroScope(const UndoMacroScope &) = delete;
    UndoMacroScope &operator=(const UndoMacroScope &) = delete;

private:
    HostServices *m_host;
};
