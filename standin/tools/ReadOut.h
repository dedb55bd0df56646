#pragma once

#include <QRect>
#include <QSet>
#include <QString>

class DocumentList;
class HostServices;
class PLG_Interface;
class StandInCamera;
class StandInEvents;

/// The choice of the part of the sensor that the cameras read, by a tool. Meanwhile each camera
/// shows its whole sensor, in sensor pixels, and reads out the tool's region of it when it is sent
/// its settings. GUI thread.
class ReadOut
{
public:
    ReadOut(HostServices &host, DocumentList &documents, StandInEvents &events);

    /// Names of the tools whose region is what a camera reads.
    QSet<QString> &tools() { return m_tools; }

    bool isEdited() const { return m_editor; }

    /// The plug-in is the current one from now on, or no longer. It begins with what each camera
    /// reads now. Nothing for a tool that is none of tools(). Throws what the tool throws.
    void begin(PLG_Interface *plugin);
    void end(PLG_Interface *plugin);

    /// Tells the tool of a camera that joins. Its failure goes to the host's errorHandler().
    void addCamera(StandInCamera &camera);

    /// The part of the sensor that the tool wants a camera to read, by its regionToSensor(). The
    /// camera's present one without a tool, or when the tool fails, which is handed to the host's
    /// errorHandler().
    QRect wanted(StandInCamera &camera);

private:
    HostServices &m_host;
    DocumentList &m_documents;
    StandInEvents &m_events;
    QSet<QString> m_tools{QStringLiteral("t_region")};
    PLG_Interface *m_editor = nullptr;
};
