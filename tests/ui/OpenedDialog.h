#pragma once

#include "tests/support/FakeCamera.h"

#include <QCoreApplication>
#include <QDialog>
#include <QPushButton>
#include <QTest>

/// The tab's dialog, null when none is open.
inline QDialog* dialogOf(const QWidget& tab)
{
    return tab.findChild<QDialog*>();
}

inline void clickOpen(const QWidget& tab)
{
    QTest::mouseClick(tab.findChild<QPushButton*>("btnAdvancedDialog"), Qt::LeftButton);
}

/// Deletes what waits for its deletion, as the event loop would.
inline void deleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// How many observers the camera's features have in all.
inline std::size_t registrations(const Fake::FakeCamera& camera)
{
    std::size_t count = 0;
    for (const ZalCPP::FeaturePtr& feature : *camera.features())
        count += static_cast<const Fake::FakeFeature&>(*feature).observerCount();
    return count;
}
