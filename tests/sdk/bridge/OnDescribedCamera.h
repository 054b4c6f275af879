#pragma once

#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/DescribedCamera.h"

namespace BridgeTest {

/// A second base of test classes: a camera with the description that the test gives it.
class OnDescribedCamera
{
protected:
    OnDescribedCamera() = default;
    ~OnDescribedCamera() = default;

    /// See DescribedCamera::describe().
    void open(const QList<QByteArray>& features, const QByteArray& nodes)
    {
        m_server = DescribedCamera::serve(DescribedCamera::describe(features, nodes));
        m_camera = openCamera();
    }
    /// For cleanup().
    void close()
    {
        m_camera.reset();
        m_server.reset();
    }

    FeaturePtr find(const std::string& name) const { return m_camera->FindFeature(name); }

    std::unique_ptr<NastyCamera> m_server;
    std::unique_ptr<ZalCPP::Camera> m_camera;
};

} // namespace BridgeTest
