#pragma once

#include "contract/HostTypes.h"
#include "standin/documents/CameraSettings.h"

#include <QDateTime>
#include <QList>
#include <QRect>
#include <QVariant>

class CallJournal;
class DOC_Interface;
class StandInCamera;
class StandInDocument;
class StandInEvents;

/// What a document asks of the host that it belongs to. GUI thread; it outlives its documents.
class DocumentOwner
{
public:
    virtual CallJournal &callJournal() = 0;
    virtual StandInEvents *events() = 0; ///< never null

    // The list of documents.

    virtual StandInCamera *camera(DOCKEY key) const = 0; ///< null without such a camera
    virtual int cameraCount() const = 0;
    virtual QList<DOCKEY> selection() const = 0;

    /// Keys of the heads of a camera's device, its own among them; none for what is no camera.
    virtual QList<DOCKEY> headsOf(DOCKEY key) const = 0;

    virtual void select(DOCKEY key, bool selected) = 0;

    /// Members of the group that a document stands for or is part of, in the order of the list.
    virtual QList<DOC_Interface *> groupMembersOf(StandInDocument *document) const = 0;

    // Tools.

    /// Whether a tool is on for all documents that say nothing else.
    virtual bool toolState(const QString &tool) const = 0;
    virtual bool isTransactionOpen(const QString &tool) const = 0;

    /// Whether a feature is on for all documents.
    virtual bool hasFeature(const QString &feature) const = 0;

    /// Whether a tool chooses the part of the sensor that is read. Meanwhile each camera shows its
    /// whole sensor.
    virtual bool isReadOutEdited() const = 0;

    /// The part of the sensor that such a tool wants a camera to read, the present one without.
    virtual QRect wantedReadOut(StandInCamera &camera) = 0;

    // Saves.

    /// The name that a save in this mode would give the file of a partition now, without extension;
    /// empty when there is none. Does not throw.
    virtual QString savedFileName(int mode, DOC_Interface *document, int partitionNo,
                                  const QDateTime &time) = 0;

    // Information over the pictures.

    virtual QVariant setting(const QString &key) const = 0; ///< the default without a stored one
    virtual TimeCodeRecord timeCode() const = 0;

    /// What stands before an item, as short as there is a word for it, in the language of the user
    /// or in English.
    virtual QString infoLabel(const QString &id, bool inEnglish) const = 0;

    virtual int viewMode() const = 0; ///< HostMode
    virtual bool isRecordingNow() const = 0;
    virtual bool isInfoShowing() const = 0; ///< over the pictures on the screen

    // Camera settings.

    /// Sets one value of a camera, taken from `wanted`, as one undo step, on all locked cameras
    /// while this one is locked.
    virtual void changeSettings(StandInCamera &camera, const CameraSettings &wanted,
                                CameraSetting setting) = 0;

    /// Changes the document alone, as one undo step; nothing is sent.
    virtual void editSettings(StandInCamera &camera, const CameraSettings &settings) = 0;

    /// Chooses a preset of a camera's device.
    virtual void applyPreset(StandInCamera &camera, int number) = 0;

    // The network.

    /// Gives a camera another setting for an Ethernet type. Throws a DOC_Exception with the reason,
    /// and changes nothing, where it may not have it.
    virtual void changeNetwork(StandInCamera &camera, int etherType,
                               const NetworkSetting &setting) = 0;

    /// Has a camera use the setting of this Ethernet type, where it has one.
    virtual void chooseEtherType(StandInCamera &camera, int etherType) = 0;

protected:
    ~DocumentOwner() = default;
};
