// SPDX-License-Identifier: MIT
#pragma once

#include "UnixLines.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QtTest>

/// Programs that kest_test_child plays, which does the commands in a file beside it. Their paths
/// are without the suffix of programs.
namespace PlayedProgram {

/// Commands that write down the working directory and the arguments.
inline const char* const telling = "tell-directory\ntell-arguments\ntold\n";

/// The file of the program.
inline QString file(const QString& path)
{
#ifdef Q_OS_WIN
    return path + QStringLiteral(".exe");
#else
    return path;
#endif
}

/// The same as messages show it.
inline QString shown(const QString& path)
{
    return QDir::toNativeSeparators(file(path));
}

/// What it does from now on, a word a line.
inline bool teach(const QString& path, const QByteArray& commands)
{
    QFile beside(path + QStringLiteral(".commands"));
    return beside.open(QIODevice::WriteOnly) && beside.write(commands) == commands.size();
}

/// Makes it appear, perhaps in place of another one.
inline bool install(const QString& path, const QByteArray& commands)
{
    const QString child = QStringLiteral(KEST_TEST_CHILD);
    QFile::remove(file(path));
#ifdef Q_OS_WIN
    const bool isThere = QFile::copy(child, file(path));
#else
    const bool isThere = QFile::link(child, file(path));
#endif
    return isThere && teach(path, commands);
}

/// Where it tells something.
inline QString toldFile(const QString& path)
{
    return path + QStringLiteral(".told");
}

/// What it has told, which it forgets; waits for it.
inline QStringList toldBy(const QString& path)
{
    constexpr int longTime = 60000; // ms, on a machine with much to do
    QFile told(toldFile(path));
    if (!QTest::qWaitFor([&told] { return told.exists(); }, longTime) ||
        !told.open(QIODevice::ReadOnly)) {
        return {QStringLiteral("nothing")};
    }
    QStringList lines = QString::fromUtf8(unixLines(told.readAll())).split(QLatin1Char('\n'));
    lines.removeLast();
    told.remove();
    return lines;
}

} // namespace PlayedProgram
