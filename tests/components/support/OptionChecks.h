// SPDX-License-Identifier: MIT
#pragma once

#include "SuiteRun.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

/// Adds rows with the column "path": names of models below a folder, without suffix, that every
/// component accepts.
inline void addModelPaths()
{
#ifdef Q_OS_WIN // where no name has quotation marks
    const char* const quoted = "it's q $(x);&/m'";
#else
    const char* const quoted = R"(it's "q" $(x);&/m'")";
#endif
    QTest::addColumn<QString>("path");
    for (const char* path :
         {"plain", "two words/two words", quoted, "f\xc3\xbcr/\xe6\x97\xa5\xe6\x9c\xac", "-dash/-m",
          "dots/a.b (c)[d]+"}) {
        QTest::newRow(path) << QString::fromUtf8(path);
    }
}

/// Writes a model below the folder, and makes the folders in between. The absolute path; empty when
/// it could not be written.
inline QString writeModelAt(const QString& folder, const QString& path, const QByteArray& deck)
{
    const QFileInfo file(QDir(folder).filePath(path + QStringLiteral(".nec")));
    return QDir().mkpath(file.absolutePath())
               ? writeFile(file.absolutePath(), file.fileName(), deck)
               : QString();
}

/// Rows with the columns "arguments" and "error", the beginning of the message.
struct WrongOptions
{
    static void addColumns()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("error");
    }

    static void add(const char* arguments, const char* error)
    {
        QTest::newRow(arguments) << QString::fromUtf8(arguments).split(QLatin1Char(' '))
                                 << QString::fromUtf8(error);
    }
};

/// Checks that a component has refused its command line, with this beginning of the first error.
inline void verifyRefusal(const SuiteResult& result, const QString& error)
{
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(QStringLiteral("error"));
    QVERIFY(!errors.isEmpty());
    QVERIFY2(errors.first().startsWith(error), qPrintable(errors.first()));
    QVERIFY(!result.hasText(QStringLiteral("-*-total-percentage-*-100%")));
}

/// Checks that the help of a component has a line for the option.
inline void verifyHelp(const SuiteResult& help, const char* option)
{
    QCOMPARE(help.exitCode, 0);
    QVERIFY2(help.hasText(QStringLiteral("  %1 ").arg(QLatin1String(option))), option);
}
