// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

// A folder for models, a folder for temporary files, and a mark in the environment by which every
// process of the runs in them is found.
class MarkedRuns
{
public:
    MarkedRuns();

    QString folder() const { return m_folder.path(); }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    // The environment of the runs; their engine is the real one.
    QProcessEnvironment environment() const;

    // The same with an engine that takes a while for each frequency before it computes.
    QProcessEnvironment slowEnvironment(double seconds);

    // The same with an engine that plays a part.
    QProcessEnvironment fakeEnvironment(const QString& part) const;

    // The numbers of the processes of the runs, and how many there are.
    QStringList processes() const;
    int processCount() const;

    // True when this many processes are there, or none is, within the patience of a loaded machine.
    bool waitForProcesses(int least) const;
    bool waitForEnd() const;

    // The names of all entries of the two folders, sorted.
    QStringList entries() const;
    QStringList temporaryEntries() const;
    QString temporaryPath(const QString& name) const { return m_temporary.filePath(name); }

    // Processes and temporary files of the runs. There are none at the end of a good test.
    QStringList left() const;
    bool waitUntilNothingIsLeft() const;

private:
    QTemporaryDir m_folder;
    QTemporaryDir m_temporary;
    QTemporaryDir m_engines;
    QByteArray m_mark;
};
