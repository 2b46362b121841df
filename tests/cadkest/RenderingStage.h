// SPDX-License-Identifier: MIT
#pragma once

#include <SettingsFolders.h>

#include <MainWindow.h>
#include <RenderingSettings.h>

#include <common_HelpClient.h>

#include <QLabel>
#include <QSettings>

class FakeHelpClient : public OfferedService<common_HelpClient>
{
public:
    void registerPage(QWidget* widget, const QString& page) override { pages[widget] = page; }

    QHash<QWidget*, QString> pages;
};

/// A window with its rendering settings in a folder of its own, and the application's services.
class RenderingStage
{
public:
    RenderingStage() : settings(file()) { settings.readSettings(); }

    QString file() const { return folders.info.userSettings + QStringLiteral("/cadkest.ini"); }

    /// What the settings file says under a key of the group "rendering".
    QString saved(const char* key) const
    {
        const QSettings found(file(), QSettings::IniFormat);
        return found.value(QLatin1String("rendering/") + QLatin1String(key)).toString();
    }

    /// A program of the shell, which plays the one that tries hardware rendering.
    QString program(const QByteArray& commands) const
    {
        QString path = folders.path() + QStringLiteral("/prober");
        if (!SettingsFolders::write(path, "#!/bin/sh\n" + commands + "\n") ||
            !QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)) {
            qFatal("no program");
        }
        return path;
    }

    QLabel& label(const char* name) const
    {
        return *window.findChild<QLabel*>(QLatin1String(name));
    }

    /// Whether the view is drawn by software and follows the user.
    bool isUsable() const
    {
        SceneView* const view = window.view();
        const QImage before = view->picture();
        view->lookFrom(before == pictureFrom(Direction::X) ? Direction::Z : Direction::X);
        return view->rendering() == Rendering::Software && view->picture() != before &&
               label("renderingName").text() == QLatin1String("Software rendering");
    }

    SettingsFolders folders;
    FakeApplication application;
    FakeHelpClient help;
    RenderingSettings settings;
    MainWindow window;

private:
    QImage pictureFrom(Direction direction) const
    {
        window.view()->lookFrom(direction);
        return window.view()->picture();
    }
};
