#pragma once

#include "sdk/bridge/AccessGuard.h"
#include "sdk/bridge/CameraWorker.h"
#include "sdk/bridge/ChangeNotifier.h"
#include "sdk/bridge/FeatureDescription.h"
#include "sdk/bridge/RegisterTap.h"

#include <ZalCPP/Feature.h>

#include <memory>
#include <mutex>
#include <vector>

namespace ZalCPP {

/// What a camera and its features share. Features keep it alive, so that their static facts can be
/// asked after the camera is gone; the device itself is released by close().
class CameraCore : public std::enable_shared_from_this<CameraCore>
{
public:
    /// Nobody else may keep `device`: the last reference is released on the worker thread.
    static std::shared_ptr<CameraCore> open(std::shared_ptr<ArvDevice> device,
                                            CameraDescription description);
    ~CameraCore();
    CameraCore(const CameraCore&) = delete;
    CameraCore& operator=(const CameraCore&) = delete;

    /// Releases the device, or leaves that to the worker's remains when the camera does not answer.
    void close();

    /// The handle to the feature; the same one as long as somebody holds it. Any thread.
    FeaturePtr feature(std::size_t position);
    /// Valid as long as the core. Any thread; costs no traffic.
    const FeatureDescription& facts(std::size_t position) const;
    /// Never null.
    const std::shared_ptr<const CameraDescription>& description() const
    {
        return cameraDescription;
    }

    /// False once the camera is lost or closed.
    bool isOpen() const { return cameraWorker->isOpen(); }
    /// Where every access to the camera runs.
    CameraWorker& worker() { return *cameraWorker; }
    /// Who tells observers about changes.
    ChangeNotifier& notifier() { return *changeNotifier; }
    /// The numbers of register accesses, and who controls the camera.
    const RegisterTap& tap() const { return *registerTap; }
    /// For use on the worker thread.
    ArvDevice* device() const { return rawDevice; }

    /// Runs `query(facts, answer)` on the worker thread; `answer` is set on success only.
    template <typename Answer, typename Query>
    ZalErrorType ask(std::size_t position, Answer& answer, Query query,
                     const AccessGuard::Demand& demand = {})
    {
        if (guard->hasGivenUpReading(position))
            return statusOfGivenUp();
        const auto result = std::make_shared<Answer>();
        const auto read = [query, result](const FeatureDescription& feature) {
            return query(feature, *result);
        };
        const ZalErrorType status = cameraWorker->call([guard = guard, position, read, demand] {
            return guard->read(position, read, demand);
        });
        if (status == ZalErrorSuccess)
            answer = std::move(*result);
        return status;
    }

    /// Runs `write(facts)` on the worker thread and lets the notifier know, even when the caller
    /// has given up waiting by then.
    template <typename Write> ZalErrorType change(std::size_t position, Write write)
    {
        if (guard->hasGivenUpWriting(position))
            return statusOfGivenUp();
        const auto noted = [notifier = changeNotifier, write](const FeatureDescription& feature) {
            const ZalErrorType status = write(feature);
            if (mayHaveWritten(status))
                notifier->written(feature);
            return status;
        };
        return cameraWorker->call(
            [guard = guard, position, noted] { return guard->write(position, noted); });
    }

    /// As change(), for an operation on the camera as a whole that may change any feature.
    template <typename Write> ZalErrorType changeAll(Write write)
    {
        return cameraWorker->call(changingAll(write));
    }
    /// As changeAll(), but in its turn and without waiting.
    template <typename Write> void postChangeAll(Write write)
    {
        cameraWorker->post(changingAll(write));
    }

private:
    CameraCore() = default;

    template <typename Write> CameraWorker::Work changingAll(Write write)
    {
        return [description = cameraDescription, guard = guard, notifier = changeNotifier, write] {
            const ZalErrorType status = guard->anew([&] { return write(*description); });
            notifier->writtenAll();
            return status;
        };
    }

    static bool mayHaveWritten(ZalErrorType status);
    ZalErrorType statusOfGivenUp() const { return isOpen() ? ZalErrorTimeout : ZalErrorNotOpen; }
    void watchForLoss();

    std::shared_ptr<const CameraDescription> cameraDescription;
    std::shared_ptr<RegisterTap> registerTap;
    std::shared_ptr<AccessGuard> guard;
    std::shared_ptr<ChangeNotifier> changeNotifier;
    std::shared_ptr<CameraWorker> cameraWorker;
    std::shared_ptr<ArvDevice> ownedDevice;
    ArvDevice* rawDevice = nullptr;

    std::mutex mutex;
    std::vector<std::weak_ptr<Feature>> handles; ///< In step with the description's features.
};

} // namespace ZalCPP
