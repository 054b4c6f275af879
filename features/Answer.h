#pragma once

#include <ZalCPP/ZalTypes.h>

#include <optional>

/// Whether a question with this status was left unanswered by the camera. Any other failure is an
/// answer: no.
constexpr bool isUnanswered(ZalErrorType status)
{
    return status == ZalErrorTimeout || status == ZalErrorTransport || status == ZalErrorNotOpen;
}

/// What became of a question to the camera.
template <typename T> struct Answer
{
    T value = T(); ///< Neutral where the question failed, for whatever reason.
    ZalErrorType status = ZalErrorSuccess;

    bool isMissing() const { return isUnanswered(status); }
};

/// What became of a write to the camera.
template <typename T> struct Written
{
    /// What the camera holds then; nothing where it did not say.
    std::optional<T> value;
    /// The write, or a question on the way, was left unanswered.
    bool unanswered = false;
};
