// Features that meddle while a tab is built on them.
#pragma once

#include "tests/support/FakeCamera.h"
#include "tests/support/LogCapture.h"

#include <optional>
#include <utility>

/// Throws while a tab is under construction.
template <class Exception> class ThrowingFeature : public Fake::FakeFeature
{
public:
    template <typename... Arguments>
    explicit ThrowingFeature(const Exception& toThrow, Arguments&&... arguments)
        : FakeFeature(std::forward<Arguments>(arguments)...), m_exception(toThrow)
    {
    }
    ZalErrorType GetName(char*, std::uint32_t&) const override { throw m_exception; }

private:
    Exception m_exception;
};

/// Captures the log from its first use on: a tab under construction silences the log, then looks
/// its features up.
class CapturingFeature : public Fake::FakeFeature
{
public:
    using FakeFeature::FakeFeature;
    ZalErrorType GetName(char* buffer, std::uint32_t& count) const override
    {
        if (!m_capture)
            m_capture.emplace();
        return FakeFeature::GetName(buffer, count);
    }
    bool sawAConnectionFail() const
    {
        return !m_capture.value().lines().filter("QObject::connect").isEmpty();
    }

private:
    mutable std::optional<LogCapture> m_capture;
};
