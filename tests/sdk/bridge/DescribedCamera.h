// Cameras whose description a test writes itself.
#pragma once

#include "tests/sdk/bridge/NastyCamera.h"

#include <QByteArray>
#include <QList>
#include <QTemporaryFile>

namespace DescribedCamera {

/// A camera on the loopback interface that serves this text, whatever it is. The image size has its
/// start value; all other registers hold zero.
inline std::unique_ptr<NastyCamera> serve(const QByteArray& text)
{
    QTemporaryFile file;
    if (!file.open() || file.write(text) != text.size() || !file.flush())
        qFatal("The description cannot be written");
    auto camera = std::make_unique<NastyCamera>(file.fileName().toStdString());
    camera->reset();
    return camera;
}

/// A description with these features in Root. `Plain` is one of them and always there.
inline QByteArray describe(const QList<QByteArray>& features, const QByteArray& nodes)
{
    QByteArray members;
    for (const QByteArray& feature : features)
        members += "<pFeature>" + feature + "</pFeature>";
    return R"(<?xml version="1.0" encoding="utf-8"?>
<RegisterDescription ModelName="Test" VendorName="Test" StandardNameSpace="None"
    SchemaMajorVersion="1" SchemaMinorVersion="1" SchemaSubMinorVersion="0"
    MajorVersion="1" MinorVersion="0" SubMinorVersion="0"
    xmlns="http://www.genicam.org/GenApi/Version_1_1">
<Category Name="Root">)" +
           members + R"(<pFeature>Plain</pFeature></Category>
<IntReg Name="Plain"><Address>0x4000</Address><Length>4</Length><AccessMode>RW</AccessMode>
<pPort>Device</pPort><Endianess>BigEndian</Endianess></IntReg>
)" + nodes +
           R"(
<Port Name="Device"/>
</RegisterDescription>
)";
}

/// One register node; `more` holds further elements.
inline QByteArray reg(const QByteArray& kind, const QByteArray& name, const QByteArray& address,
                      const QByteArray& length, const QByteArray& more = {})
{
    return "<" + kind + " Name=\"" + name + "\"><Address>" + address + "</Address><Length>" +
           length + "</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>" + more +
           "<Endianess>BigEndian</Endianess></" + kind + ">\n";
}

} // namespace DescribedCamera
