#pragma once

#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LeaksOfQtParser.h"
#include "tools/presetcheck/Output.h"
#include "tools/presetcheck/PresetCheck.h"

#include <QByteArray>

#include <memory>

/// JSON that is written with ' for ", because moc trips over raw strings with a # in them.
inline QByteArray json(QByteArray text)
{
    return text.replace('\'', '"');
}

/// What the checker prints for a file "f.json" of that content; ' stands for ".
inline QByteArray findingsIn(const QByteArray& content, const FeatureManager* camera = nullptr)
{
    [[maybe_unused]] const LeaksOfQtParser ignored;
    PresetCheck::Report report = PresetCheck::checkPresets(json(content), camera);
    report.file = QStringLiteral("f.json");
    return PresetCheck::asText({report});
}

/// A file with one preset, "A", of these members.
inline QByteArray presetOf(const QByteArray& members)
{
    return "{'#presets': ['A'], 'A': {" + members + "}}";
}

/// A camera with everything that a check against a camera may come across.
class CameraToCheck
{
public:
    CameraToCheck() : fake(Fake::FakeCamera::standard())
    {
        fake->addInteger("Width", 64, 16, 1008, 16);
        fake->addInteger("Offset", 1, 1, 100, 10);
        fake->addFloat("Gain", 0.0, 0.0, 24.0)->state().incrementReal = 0.5;
        fake->addString("DeviceUserID", "left");
        fake->addBool("ReverseX", false);
        fake->addRaw("UserTable", {1, 2, 3});
        fake->addEnum("SensorMode", {"Fast", "Deep"}, "Fast");
        fake->find("SensorMode")->state().entries.at(1).available = false;
        fake->addInteger("Locked", 0)->state().writable = false;
        // Line0 is an input for good: it drives nothing.
        fake->find("LineSource")->stateFor("Line0").writable = false;
        fake->find("LineDebounceDuration")->stateFor("Line2").maxReal = 50.0;

        manager = std::make_unique<FeatureManager>(FeatureTest::wrap(*fake));
        fake->clearLog();
    }

    QStringList writes() const { return FeatureTest::toList(fake->writes()); }

    std::unique_ptr<Fake::FakeCamera> fake;
    std::unique_ptr<FeatureManager> manager;
};
