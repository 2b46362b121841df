// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// A test function that brings about a fault.
struct FaultTest
{
    QString program;  ///< its name among the test programs
    QString function; ///< without parentheses
    QString row;      ///< its data tag; empty for all rows

    /// As QtTest takes it on the command line.
    QString word() const { return row.isEmpty() ? function : function + QLatin1Char(':') + row; }
};

/// A fault or a bad input that the software must survive.
struct Fault
{
    int number = 0;
    QString name;
    QString promise; ///< what must be true afterwards
    QVector<FaultTest> tests;
};

/// The faults of a text file, in its order. For each there is
///
///     NUMBER. NAME
///       then: PROMISE
///       by: PROGRAM FUNCTION[:ROW]
///
/// with as many lines "by" as there are functions, the quickest that can tell first. Empty lines
/// and lines that begin with "#" mean nothing.
class FaultTable
{
public:
    static FaultTable read(const QString& path);

    const QVector<Fault>& faults() const { return m_faults; }

    /// What is wrong with the file, each with its line.
    const QStringList& errors() const { return m_errors; }

    /// Checks that each number from 1 to count is there, once and in order.
    QStringList numberingErrors(int count) const;

private:
    void readLine(int number, const QString& line);
    void readTest(int number, const QString& words);
    void checkLast();
    void addError(int line, const QString& reason);

    QVector<Fault> m_faults;
    QStringList m_errors;
};
