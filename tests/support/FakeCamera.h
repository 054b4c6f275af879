#pragma once

#include "tests/support/FakeFeature.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace Fake {

using FakeFeaturePtr = std::shared_ptr<FakeFeature>;

/// A write that a camera took, or a command that it ran.
struct Accepted
{
    std::string feature;
    std::string value; ///< As in the log; empty for commands.
    std::string entry; ///< What the feature's selector held; empty without a selector.
};

/// A scripted camera: a feature list whose answers, failures and notifications the test decides.
///
/// Every SDK call is logged as "Operation Feature" and every write as "Operation Feature=value",
/// for example "GetFloatValue TriggerDelay" or "SetStringValue TriggerMode=On". A two-call read
/// logs two calls. The camera must outlive the widgets under test.
class FakeCamera
{
public:
    FakeCamera();
    ~FakeCamera();

    /// A camera that the plugin accepts, with every feature that the forms name: vendor "Tarsel
    /// Imaging GmbH", lines Line0..Line3 under LineSelector, triggers AcquisitionStart, FrameStart
    /// and LineStart, two counters, two timers. Selectors stand before what they select.
    static std::unique_ptr<FakeCamera> standard();

    FakeFeaturePtr addInteger(const std::string& name, long long value, long long min = 0,
                              long long max = 1000, long long increment = 1);
    FakeFeaturePtr addFloat(const std::string& name, double value, double min = 0.0,
                            double max = 1000000.0);
    FakeFeaturePtr addBool(const std::string& name, bool value);
    FakeFeaturePtr addString(const std::string& name, const std::string& value);
    FakeFeaturePtr addEnum(const std::string& name, const std::vector<std::string>& entries,
                           const std::string& value);
    FakeFeaturePtr addCommand(const std::string& name);
    FakeFeaturePtr addRaw(const std::string& name, const std::vector<unsigned char>& value);
    FakeFeaturePtr add(const std::string& name, ZalFeatureDataType type);
    void remove(const std::string& name);

    /// Puts features under a selector (enumeration or integer): each gets a state per entry of the
    /// selector.
    void select(const std::string& selector, const std::vector<std::string>& selected);

    /// The feature of that name; null when there is none.
    FakeFeaturePtr find(const std::string& name) const;
    FakeFeature& operator[](const std::string& name) const; ///< Aborts when there is none.
    ZalCPP::FeatureList features() const;

    // Failures. An operation name is that of the method ("SetFloatValue").
    /// Every call of that operation on that feature fails until cleared.
    void failCall(const std::string& operation, const std::string& feature,
                  ZalErrorType status = ZalErrorTransport);
    /// The n-th call from now on (1 is the next one), whatever it is, fails.
    void failNthCall(int n, ZalErrorType status = ZalErrorTransport);
    /// The n-th call from now on and every one after it fail.
    void failFromNthCall(int n, ZalErrorType status = ZalErrorNotOpen);
    /// From now on every call fails, as after the loss of the camera.
    void failEverything(ZalErrorType status = ZalErrorNotOpen);
    void clearFailures();
    /// Asked about every call, on the caller's thread and with the camera locked: a status other
    /// than 0 fails the call. It must not call the camera.
    std::function<ZalErrorType(const std::string& operation, const std::string& feature)> onCall;

    /// Told of every accepted write, on the writer's thread, before the feature's own onWrite.
    std::function<void(const Accepted&)> onAccepted;

    // Log.
    std::vector<std::string> calls() const;
    std::vector<std::string> writes() const; ///< Set... and RunCommand entries only.
    int callCount(const std::string& operation, const std::string& feature) const;
    void clearLog();
    /// Off, calls are no longer logged: for benchmarks, where the log would cost more than the
    /// call.
    void setLogging(bool on);

    /// Calls the feature's observers from a thread of its own, as the SDK does, and returns when
    /// they have been called. What they post to other threads is still on its way then.
    void notify(const std::string& feature);

private:
    friend class FakeFeature;
    /// Logs a call and says whether it shall fail (0: no).
    ZalErrorType enter(const std::string& operation, const std::string& feature,
                       const std::string& value = std::string(), bool write = false);

    struct Call
    {
        std::string text;
        bool write = false;
    };
    mutable std::mutex m_mutex;
    std::vector<Call> m_log;
    bool m_logging = true;
    std::map<std::pair<std::string, std::string>, ZalErrorType> m_failing;
    int m_failCountdown = 0;
    ZalErrorType m_failCountdownStatus = 0;
    bool m_failAfterCountdown = false;
    ZalErrorType m_failAll = 0;
    ZalCPP::FeatureList m_list;
    std::vector<FakeFeaturePtr> m_fakes;
};

} // namespace Fake
