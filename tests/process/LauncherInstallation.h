// SPDX-License-Identifier: MIT
#pragma once

#include <BoxReader.h>
#include <SettingsFolders.h>

#include <common_KestGuiLauncher.h>

#include <QWidget>
#include <QtTest>

#include <memory>

using Launcher = common_KestGuiLauncher;

/// Writes down its working directory and its arguments, in a file beside it of its own name with
/// ".told" added, with "end" as the last line.
inline const char* const tellingScript = "#!/bin/sh\n"
                                         "{\n"
                                         "pwd -P\n"
                                         "for a in \"$@\"; do printf '<%s>\\n' \"$a\"; done\n"
                                         "printf '%s\\n' \"${KEST_TEST_PASSED-unset}\" end\n"
                                         "} > \"$0.told\"\n";

/// The same, but waits for a file of its own name with ".go" added first, and says no more than
/// "late".
inline const char* const waitingScript = "#!/bin/sh\n"
                                         "while ! [ -e \"$0.go\" ]; do /bin/sleep 0.02; done\n"
                                         "{ echo late; echo end; } > \"$0.told\"\n";

/// The file of a program at a path without suffix.
inline QString executable(const QString& path)
{
#ifdef Q_OS_WIN
    return path + QStringLiteral(".exe");
#else
    return path;
#endif
}

/// The same as messages show it.
inline QString shownExecutable(const QString& path)
{
    return QDir::toNativeSeparators(executable(path));
}

/// Puts a program at a path without suffix. On Windows, which starts no scripts, the tests' child
/// plays these two.
inline bool writeProgram(const QString& path, const char* script = tellingScript)
{
#ifdef Q_OS_WIN
    return QFile::copy(QStringLiteral(KEST_TEST_CHILD), executable(path)) &&
           SettingsFolders::write(path + QStringLiteral(".tells"),
                                  script == waitingScript ? "waits" : "");
#endif
    return SettingsFolders::write(path, script) &&
           QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

inline QString fileOf(const QString& program)
{
    return program + QStringLiteral(".told");
}

/// What the program has written down, without the last line; waits for it.
inline QStringList toldBy(const QString& program)
{
    const QString path = fileOf(program);
    const auto isThere = [&path] {
        return QFile::exists(path) && SettingsFolders::read(path).endsWith("end\n");
    };
    if (!QTest::qWaitFor(isThere, 20000)) {
        return {QStringLiteral("nothing")};
    }
    const QString told = QString::fromUtf8(SettingsFolders::read(path));
    QStringList lines = told.split(QLatin1Char('\n'));
    lines.removeLast();
    lines.removeLast();
    return lines;
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
