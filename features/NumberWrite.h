#pragma once

#include "features/Answer.h"
#include "features/ZalFeatureWrapper.h"

#include <QString>

/// One write of a number to a feature, with the questions that it takes: type, limits, increment,
/// access, and what the camera holds then. GUI thread only.
class NumberWrite
{
public:
    /// What happens where the camera leaves a question unanswered.
    enum class Silence
    {
        CountsAsNeutral, ///< As any other failure: unreadable limits are -1 to -1.
        Ends,            ///< Nothing is written that rests on an answer that did not come.
    };

    /// `feature` must not be null; `name` is what the log calls it.
    NumberWrite(ZalFeatureWrapperPtr feature, QString name, Silence silence);

    /// Writes the number, fitted into the range, an integer also to the increment. A refused float
    /// is tried once more. Nothing is written to a feature that takes none. Call it once.
    Written<double> run(double value);

private:
    std::optional<double> write(double value);
    std::optional<double> writeFloat(double value);
    std::optional<double> writeInteger(double value);
    std::optional<double> writeBool(double value);
    ZalErrorType attemptFloat(double requested);
    template <typename T> std::optional<double> readBack();
    template <typename T> bool mayGoOn(const Answer<T>& answer);
    ZalErrorType noted(ZalErrorType status);
    void logRefusal(const char* prefix, ZalErrorType status) const;

    const ZalFeatureWrapperPtr m_feature;
    const QString m_name;
    const Silence m_silence;
    bool m_unanswered = false;
};
