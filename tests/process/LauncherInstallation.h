// SPDX-License-Identifier: MIT
#pragma once

#include <BoxReader.h>
#include <PlayedProgram.h>
#include <SettingsFolders.h>

#include <common_KestGuiLauncher.h>

#include <QWidget>
#include <QtTest>

#include <memory>

using Launcher = common_KestGuiLauncher;

/// Puts a program at a path without suffix, which writes down its working directory, its arguments
/// and a variable.
inline bool writeProgram(const QString& path)
{
    return PlayedProgram::install(
        path, "tell-directory\ntell-arguments\ntell-variable\nKEST_TEST_PASSED\ntold\n");
}

/// The same, but it waits for a file of its own name with ".go" added first, and says no more than
/// "late".
inline bool writeWaitingProgram(const QString& path)
{
    return PlayedProgram::install(path,
                                  "wait-for-file\n" + path.toUtf8() + ".go\ntell\nlate\ntold\n");
}

/// An installation to which KEST_HOME points, without a display.
class Installation
{
public:
    Installation()
        : m_home("KEST_HOME", m_folder.path())
        , m_display("DISPLAY")
        , m_wayland("WAYLAND_DISPLAY")
        , m_passed("KEST_TEST_PASSED", QStringLiteral("handed down"))
    {
        QDir(m_folder.path()).mkdir(QStringLiteral("bin"));
        QDir(m_folder.path()).mkdir(QStringLiteral("work"));
        QDir(m_folder.path()).mkdir(QStringLiteral("path"));
    }

    QString path() const { return QFileInfo(m_folder.path()).canonicalFilePath(); }
    QString program(const QString& name) const { return path() + QStringLiteral("/bin/") + name; }
    QString cadKest() const { return m_folder.path() + QStringLiteral("/bin/cadkest"); }
    QString workingDirectory() const { return path() + QStringLiteral("/work"); }
    QString searchPath() const { return path() + QStringLiteral("/path"); }
    QString terminal() const { return searchPath() + QStringLiteral("/x-terminal-emulator"); }

private:
    QTemporaryDir m_folder;
    Variable m_home;
    Variable m_display;
    Variable m_wayland;
    Variable m_passed;
};

inline QString failureText(const QString& what)
{
    return QStringLiteral("Process could not be started with the following arguments:\n") + what +
           QStringLiteral("\nPlease ensure that Morlan Kest is fully installed, and that\n"
                          "the KEST_HOME environment variable is set correctly.");
}

/// Reads the boxes that the launcher shows.
class LauncherStage
{
protected:
    static QStringList twoArguments() { return {QStringLiteral("a b"), QStringLiteral("$(c)")}; }

    void verifyBox(const QString& text, QWidget* parent)
    {
        const QVector<BoxReader::Box> boxes = m_reader->take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].title, QStringLiteral("Information"));
        QCOMPARE(boxes[0].text, text);
        QCOMPARE(boxes[0].details, QString());
        QCOMPARE(boxes[0].icon, QMessageBox::Information);
        QCOMPARE(boxes[0].parent, parent);
    }

    std::unique_ptr<BoxReader> m_reader;
};
