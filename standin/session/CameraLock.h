#pragma once

#include "contract/HostTypes.h"
#include "standin/documents/CameraSettings.h"

#include <QMap>

class DocumentList;
class DocumentOwner;
class UndoHistory;
class StandInCamera;
class StandInEvents;

using CameraSettingsByKey = QMap<DOCKEY, CameraSettings>;

/// The settings of all cameras: each change is one undo step, and while the cameras are locked
/// together it reaches all of them, clamped to what each can do. GUI thread.
class CameraLock
{
public:
    CameraLock(DocumentOwner &owner, DocumentList &documents, UndoHistory &history);

    bool isOn() const { return m_on; }
    void set(bool on); ///< for all cameras, those included that join later

    /// Sets one value of a camera, taken from `wanted`, and sends it; to all locked cameras while
    /// this one is locked.
    void changeSettings(StandInCamera &camera, const CameraSettings &wanted, CameraSetting setting);

    /// Changes the document alone; nothing is sent.
    void editSettings(StandInCamera &camera, const CameraSettings &settings);

    /// Sets and sends the settings of these cameras, whether locked or not, as one undo step of
    /// that name. Cameras that have gone are passed over.
    void setAll(const CameraSettingsByKey &wanted, const QString &text);

    /// Sends the settings of the current camera, and while it is locked to all locked ones.
    void resend();

    CameraSettingsByKey settingsOfAll() const;

    /// Sets and sends what differs, without an undo step. Cameras that have gone are passed over.
    void restore(const CameraSettingsByKey &settings);

private:
    void push(const CameraSettingsByKey &wanted, const QString &text, bool send);

    DocumentOwner &m_owner;
    DocumentList &m_documents;
    UndoHistory &m_history;
    bool m_on = false;
};
