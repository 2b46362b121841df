// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

/// What became of a test function, or of one row of it.
struct TestCase
{
    enum class Outcome { Survived, Lost, Skipped };

    QString function;
    QString row; ///< its data tag; empty without data
    Outcome outcome = Outcome::Survived;
    QString message; ///< why it is lost or skipped
};

/// What QtTest writes with "-o FILE,xml".
struct TestLog
{
    QVector<TestCase> cases; ///< those that came to their end

    QString endedIn;   ///< the function in which the program ended; empty when it was in none
    QString lastWords; ///< of a program that gave up

    /// Reads a log as far as the program got.
    static TestLog read(const QString& path);
};
