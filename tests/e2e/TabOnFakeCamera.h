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
        extensions = loadTabExtensions(QStringLiteral(PLUGIN_FOLDER), camera->features());
        if (extensions.size() != 1 || !extensions[0].page)
            qFatal("The plugin gave no tab");
        page().resize(600, 800);
        page().show();
    }
    /// The application gets as mute as it was.
    ~TabOnFakeCamera()
    {
        extensions.clear();
        qDeleteAll(translators());
        QDir::setCurrent(folderBefore);
    }
    TabOnFakeCamera(const TabOnFakeCamera&) = delete;
    TabOnFakeCamera& operator=(const TabOnFakeCamera&) = delete;

    QString title() const { return extensions[0].title; }
    QWidget& page() const { return *extensions[0].page; }

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
    const QString folderBefore = QDir::currentPath();
    std::unique_ptr<Fake::FakeCamera> camera = Fake::FakeCamera::standard();
    std::vector<TabExtension> extensions;
};
