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
    /// Of all features, as read when the camera was opened; never null. Any thread may share it,
    /// but the nodes in it are for the worker thread.
    const std::shared_ptr<const CameraDescription>& description() const { return m_description; }

    /// False once the camera is lost or closed.
    bool isOpen() const { return m_worker->isOpen(); }
    /// Where every access to the camera runs.
    CameraWorker& worker() { return *m_worker; }
    /// Who tells observers about changes.
    ChangeNotifier& notifier() { return *m_notifier; }
    /// The numbers of register accesses, and who controls the camera.
    const RegisterTap& tap() const { return *m_tap; }
    /// For use on the worker thread.
    ArvDevice* device() const { return m_device; }

    /// Runs `query(facts, answer)` on the worker thread; `answer` is set on success only.
    template <typename Answer, typename Query>
    ZalErrorType ask(std::size_t position, Answer& answer, Query query,
                     const AccessGuard::Demand& demand = {})
    {
        if (m_guard->hasGivenUpReading(position))
            return statusOfGivenUp();
        const auto result = std::make_shared<Answer>();
        const auto read = [query, result](const FeatureDescription& feature) {
            return query(feature, *result);
        };
        const ZalErrorType status = m_worker->call([guard = m_guard, position, read, demand] {
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
        if (m_guard->hasGivenUpWriting(position))
            return statusOfGivenUp();
        const auto noted = [notifier = m_notifier, write](const FeatureDescription& feature) {
            const ZalErrorType status = write(feature);
            if (mayHaveWritten(status))
                notifier->written(feature);
            return status;
        };
        return m_worker->call(
            [guard = m_guard, position, noted] { return guard->write(position, noted); });
    }

    /// As change(), for an operation on the camera as a whole that may change any feature.
    template <typename Write> ZalErrorType changeAll(Write write)
    {
        return m_worker->call(changingAll(write));
    }
    /// As changeAll(), but in its turn and without waiting.
    template <typename Write> void postChangeAll(Write write)
    {
        m_worker->post(changingAll(write));
    }

private:
    CameraCore() = default;

    template <typename Write> CameraWorker::Work changingAll(Write write)
    {
        return [description = m_description, guard = m_guard, notifier = m_notifier, write] {
            const ZalErrorType status = guard->anew([&] { return write(*description); });
            notifier->writtenAll();
            return status;
        };
    }

    static bool mayHaveWritten(ZalErrorType status);
    ZalErrorType statusOfGivenUp() const { return isOpen() ? ZalErrorTimeout : ZalErrorNotOpen; }
    void watchForLoss();

    std::shared_ptr<const CameraDescription> m_description;
    std::shared_ptr<RegisterTap> m_tap;
    std::shared_ptr<AccessGuard> m_guard;
    std::shared_ptr<ChangeNotifier> m_notifier;
    std::shared_ptr<CameraWorker> m_worker;
    std::shared_ptr<ArvDevice> m_ownedDevice;
    ArvDevice* m_device = nullptr;

    std::mutex m_mutex;
    std::vector<std::weak_ptr<Feature>> m_handles; ///< In step with the description's features.
};

} // namespace ZalCPP
