#pragma once

#include "host/TabExtensions.h"
#include "tests/support/FakeCamera.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QTest>
#include <QTranslator>

#include <memory>
#include <vector>

/// The built plugin's tab as the viewer loads and shows it, for a camera without a network. The
/// working directory is the viewer's as long as the object lives.
class TabOnFakeCamera
{
public:
    TabOnFakeCamera()
    {
        if (!QDir::setCurrent(QStringLiteral(PROGRAM_FOLDER)))
            qFatal("There is no folder %s", PROGRAM_FOLDER);
        m_extensions = loadTabExtensions(QStringLiteral(PLUGIN_FOLDER), m_camera->features());
        if (m_extensions.size() != 1 || !m_extensions[0].page)
            qFatal("The plugin gave no tab");
        page().resize(600, 800);
        page().show();
    }
    /// The application gets as mute as it was.
    ~TabOnFakeCamera()
    {
        m_extensions.clear();
        qDeleteAll(translators());
        QDir::setCurrent(m_folderBefore);
    }
    TabOnFakeCamera(const TabOnFakeCamera&) = delete;
    TabOnFakeCamera& operator=(const TabOnFakeCamera&) = delete;

    QString title() const { return m_extensions[0].title; }
    QWidget& page() const { return *m_extensions[0].page; }

    /// A widget of the page by its object name; the test fails when there is none.
    template <class Widget> Widget* find(const char* name) const
    {
        auto* widget = page().findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("The page has no %s", name);
        return widget;
    }

    QWidget* tab() const { return find<QWidget>("AdvTriggerWidget"); }

    /// The dialog, after a click on the tab's button.
    QDialog* openDialog() const
    {
        QTest::mouseClick(find<QAbstractButton>("btnAdvancedDialog"), Qt::LeftButton);
        auto* dialog = tab()->findChild<QDialog*>();
        if (!dialog)
            qFatal("The dialog did not open");
        return dialog;
    }

    static QList<QTranslator*> translators()
    {
        return QCoreApplication::instance()->findChildren<QTranslator*>();
    }

private:
    const QString m_folderBefore = QDir::currentPath();
    std::unique_ptr<Fake::FakeCamera> m_camera = Fake::FakeCamera::standard();
    std::vector<TabExtension> m_extensions;
};
