#pragma once

#include "features/FeatureManager.h"
#include "tests/support/FakeCamera.h"

#include <QByteArray>
#include <QSharedPointer>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <functional>
#include <memory>

namespace FeatureTest {

using WrapperList = QSharedPointer<QVector<ZalFeatureWrapperPtr>>;

/// A camera with one feature of each type; "Mode" selects "Delay" and "Flag".
inline std::unique_ptr<Fake::FakeCamera> mixedCamera()
{
    auto camera = std::make_unique<Fake::FakeCamera>();
    camera->addInteger("Count", 42, -10, 1000, 2)->validValues = {1, 42};
    camera->addFloat("Delay", 2.5, 0.5, 99.5)->state().incrementReal = 0.25;
    camera->addBool("Flag", true);
    camera->addString("Family", "Two words");
    camera->addEnum("Mode", {"Off", "On", "Auto"}, "On")->state().entries[2] = {"Auto", 7, false};
    camera->addRaw("Data", {1, 2, 255});
    camera->addCommand("Go");
    camera->select("Mode", {"Delay", "Flag"});

    Fake::FakeFeature& count = (*camera)["Count"];
    count.displayName = "The count";
    count.category = "Root/Counters";
    count.unit = "ticks";
    count.representation = "HexNumber";
    count.toolTip = "Counts";
    count.description = "Counts ticks.";
    count.flags = ZalFeatureFlagsRead | ZalFeatureFlagsVolatile;
    count.visibility = ZalFeatureVisibilityGuru;
    return camera;
}

/// One wrapper per feature, in list order.
inline WrapperList wrap(const Fake::FakeCamera& camera)
{
    const auto wrappers = WrapperList::create();
    for (const ZalCPP::FeaturePtr& feature : *camera.features())
        wrappers->append(std::make_shared<ZalFeatureWrapper>(feature));
    return wrappers;
}

inline QStringList toList(const std::vector<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts)
        list.append(QString::fromStdString(text));
    return list;
}

/// Every bit of it: QCOMPARE takes doubles as equal that are merely close.
inline QByteArray exact(double value)
{
    return QByteArray::number(value, 'g', 17);
}

/// A one-feature camera and a manager over it.
struct World
{
    explicit World(const std::function<void(Fake::FakeCamera&)>& populate)
    {
        populate(camera);
        manager = std::make_unique<FeatureManager>(wrap(camera));
    }
    QStringList writes() const { return toList(camera.writes()); }
    Fake::FakeFeature& operator[](const char* name) const { return camera[name]; }

    Fake::FakeCamera camera;
    std::unique_ptr<FeatureManager> manager;
};

/// The camera's call log without the name reads of the lookups.
inline QStringList callsAfterLookup(const Fake::FakeCamera& camera)
{
    QStringList calls = toList(camera.calls());
    calls.erase(std::remove_if(calls.begin(), calls.end(),
                               [](const QString& call) { return call.startsWith("GetName "); }),
                calls.end());
    return calls;
}

} // namespace FeatureTest
