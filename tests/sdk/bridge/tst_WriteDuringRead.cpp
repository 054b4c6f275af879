// The camera is written while the notifier reads what an earlier write changed.
#include "sdk/bridge/CameraCore.h"
#include "sdk/bridge/DescriptionReader.h"
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"
#include "tests/sdk/bridge/WireTap.h"

#include <arv.h>

using namespace BridgeTest;
using ZalCPP::CameraCore;

namespace {

constexpr std::uint64_t PlainRegister = 0x4000;

std::shared_ptr<CameraCore> openCore()
{
    std::shared_ptr<ArvDevice> device(arv_open_device(NastyCamera::Address, nullptr),
                                      g_object_unref);
    ZalCPP::CameraDescription description;
    if (!device || ZalCPP::readDescription(arv_device_get_genicam(device.get()), description) !=
                       ZalErrorSuccess)
        qFatal("The camera cannot be opened");
    return CameraCore::open(std::move(device), std::move(description));
}

} // namespace

class tst_WriteDuringRead : public QObject
{
    Q_OBJECT

private slots:
    void whatWasReadMeanwhileIsReadAgain();
};

void tst_WriteDuringRead::whatWasReadMeanwhileIsReadAgain()
{
    WireTap tap;
    NastyCamera server;
    server.reset();
    const auto core = openCore();
    const std::size_t position = core->description()->positions.at("Plain");
    const auto plain = core->feature(position);
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(plain->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(plain->SetIntegerValue(1), ZalErrorSuccess);
    QTRY_COMPARE(recorder->count(), 1);

    std::atomic<int> reads{0};
    tap.onRead([&](ArvDevice*, std::uint64_t address) {
        // The second write takes effect while the camera already answers for the first one.
        if (address == PlainRegister && ++reads == 1)
            core->notifier().written(core->facts(position));
        return WireTap::Answer::TheCameras;
    });
    QCOMPARE(plain->SetIntegerValue(2), ZalErrorSuccess);
    QTRY_COMPARE(recorder->count(), 2);
    QCOMPARE(reads, 2);
    core->close();
}

QTEST_GUILESS_MAIN(tst_WriteDuringRead)
#include "tst_WriteDuringRead.moc"
