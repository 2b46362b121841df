// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// A test as it is registered with CTest: a QtTest executable, and how it is run.
struct TestProgram
{
    QString name;
    int timeLimit = 0; ///< seconds
    QString folder;    ///< to run it in
    QStringList command;

    /// The QtTest executable, without what it is run by.
    QString executable() const { return command.constLast(); }
};

/// The test programs of a build, from the list that the build writes: a line each, of name, time
/// limit, folder and the words of the command, with tabs between them.
class TestPrograms
{
public:
    /// Empty where the file cannot be read.
    static TestPrograms read(const QString& path);

    /// Null for an unknown name. Owned by this object.
    const TestProgram* find(const QString& name) const;

private:
    QVector<TestProgram> m_programs;
};

/// The names of the test functions that an executable has; empty where it cannot be run.
QStringList functionsOf(const TestProgram& program);
