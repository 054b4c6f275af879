#pragma once

#include <ZalCPP/ZalTypes.h>

#include <glib.h>

#include <string>
#include <utility>

namespace ZalCPP {

/// The SDK's status for an Aravis error; success for null.
ZalErrorType statusOf(const GError* error);

/// Whether the camera gave no answer at all.
inline bool isSilent(ZalErrorType status)
{
    return status == ZalErrorTimeout || status == ZalErrorNotOpen;
}

/// Receives the error of one Aravis call: pass out() to the call, then ask.
class AravisError
{
public:
    AravisError() = default;
    ~AravisError() { g_clear_error(&m_error); }
    AravisError(const AravisError&) = delete;
    AravisError& operator=(const AravisError&) = delete;

    /// For one call only: GLib does not overwrite an error.
    GError** out() { return &m_error; }
    /// Null where there was none; this object's.
    const GError* get() const { return m_error; }
    /// The caller's to free.
    GError* release() { return std::exchange(m_error, nullptr); }
    /// Success where there was none.
    ZalErrorType status() const { return statusOf(m_error); }
    /// As Aravis puts it; empty where there was none.
    std::string message() const { return m_error ? m_error->message : std::string(); }
    /// True when the description does not define what was asked for; Aravis then answers with the
    /// default that GenICam gives.
    bool isUndefinedProperty() const;
    /// True when a camera was found, but what it says of itself is no description.
    bool isUnreadableDescription() const;

private:
    GError* m_error = nullptr;
};

} // namespace ZalCPP
