#pragma once

#include <ZalCPP/Feature.h>

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QWidget>

/// The identifier by which host and plugins recognise the interface. Both sides must be built with
/// the same text: qobject_cast compares it.
#define TAB_EXTENSION_INTERFACE_IID "com.tarselimaging.Plugin.TabExtensionInterface/1.0"

/// What Q_PLUGIN_METADATA of a tab extension has as its IID: hosts tell the kind of a plugin by it
/// before they load the library.
#define TAB_EXTENSION_METADATA_IID "TabExtensionInterface"

/// What a tab extension offers to the camera viewer. GUI thread only.
///
/// Without Q_OBJECT on purpose: the interface has no meta-object of its own, so host and plugins
/// share nothing but this header and the SDK.
class TabExtensionInterface : public QObject
{
public:
    using QObject::QObject;

    /// The option of get() that names the host's signal about streaming.
    static constexpr char StreamingSignalOption[] = "connectWidgetToSignal";
    /// The result of get() for a camera that does not qualify.
    static constexpr int CameraNotSupported = 4;

    /// Builds a tab for the camera with these features inside `container`, which must have no
    /// layout yet and owns everything built. `options` may be null; StreamingSignalOption holds a
    /// SIGNAL() text of the container's parent, a signal with one bool that says whether the camera
    /// is streaming.
    ///
    /// Returns 0, or a non-zero reason why there is no tab, such as CameraNotSupported. The
    /// features and the camera must stay open while the tab exists.
    virtual int get(const ZalCPP::FeatureList& features, QWidget& container,
                    QMap<QString, QVariant>* options) = 0;

    /// Connects a signal by which the extension wants the frame rate display to start again.
    /// False when it has none.
    virtual bool connectToResetFps(QObject* receiver, const char* member) = 0;

    /// Connects a signal by which the extension starts and stops the acquisition. False when it
    /// has none.
    virtual bool connectFromAcquire(QObject* receiver, const char* member) = 0;
};

Q_DECLARE_INTERFACE(TabExtensionInterface, TAB_EXTENSION_INTERFACE_IID)
