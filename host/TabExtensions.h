#pragma once

#include "host/TabPage.h"

#include <ZalCPP/Feature.h>

#include <QString>

#include <memory>
#include <vector>

/// What became of one file of the plugins folder.
struct TabExtension
{
    enum class Outcome
    {
        Shown,   ///< The page holds the extension's tab.
        Refused, ///< The extension works, but not with this camera.
        Broken   ///< The file is no usable tab extension.
    };

    QString name; ///< The file's name without suffix, "lib" and "tabextension".
    Outcome outcome = Outcome::Broken;
    QString title;                 ///< Shown: what to write on the tab.
    QString sentence;              ///< Refused, Broken: what happened, for the user.
    std::unique_ptr<TabPage> page; ///< Shown only.
};

/// Loads every library of the folder and asks it for a tab, in the order of the file names. The
/// libraries stay loaded, and the application keeps their translations. GUI thread.
std::vector<TabExtension> loadTabExtensions(const QString& folder,
                                            const ZalCPP::FeatureList& features);
