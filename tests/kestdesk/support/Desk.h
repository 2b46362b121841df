// SPDX-License-Identifier: MIT
#pragma once

#include "Processes.h"

#include "../../support/UnixLines.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QUuid>
#include <QtTest>

inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

inline QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? unixLines(file.readAll()) : QByteArray();
}

inline void writeFile(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("cannot write %s", qPrintable(fileName));
    }
}

/// kestdesk as a user runs it, with an installation and a user's folder of its own, all in a folder
/// with a blank in its name.
class Desk
{
public:
    struct Result
    {
        int exitCode = -1;
        QString output;
        QString errors;
    };

    Desk()
    {
        for (const char* const name : {"home/bin", "home/shared/mpi", "user", "models"}) {
            if (!QDir().mkpath(path(name))) {
                qFatal("no folder");
            }
        }
        writeFile(path("home/default.ini"), "[options]\nRunParallel=false\n");
        set("KEST_HOME", path("home"));
        set("KEST_USER_HOME", path("user"));
        set("KEST_TEST_MARK", m_mark);
        set("LC_ALL", text("C.UTF-8"));
        set("XDG_CONFIG_HOME", path("settings"));
        set("DBUS_SESSION_BUS_ADDRESS", text("disabled:")); // else one may be started
        for (const char* const name : {"VISUAL", "EDITOR", "KEST_SSH", "KEST_SCRIPT"}) {
            m_environment.remove(text(name));
        }
    }

    QString path(const QString& name) const { return m_folder.path() + text("/a folder/") + name; }
    QString path(const char* name) const { return path(text(name)); }

    void set(const char* variable, const QString& value)
    {
        m_environment.insert(text(variable), value);
    }

    void unset(const char* variable) { m_environment.remove(text(variable)); }

    void start(QProcess& process, const QStringList& arguments) const
    {
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(path("models"));
        process.start(m_program, arguments);
        QVERIFY(process.waitForStarted(30000));
    }

    Result run(const QStringList& arguments, const QByteArray& input = {}) const
    {
        QProcess process;
        start(process, arguments);
        process.write(input);
        process.closeWriteChannel();
        return resultOf(process);
    }

    static Result resultOf(QProcess& process)
    {
        const bool ended =
            process.state() == QProcess::NotRunning || process.waitForFinished(60000);
        return {ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(unixLines(process.readAllStandardOutput())),
                QString::fromUtf8(unixLines(process.readAllStandardError()))};
    }

    void setProgram(const QString& program) { m_program = program; }

    /// The processes that were started from here and are still alive.
    QStringList processes() const { return Processes::of(m_mark, m_folder.path()); }

    QProcessEnvironment environment() const { return m_environment; }

private:
    QTemporaryDir m_folder;
    QString m_mark = QUuid::createUuid().toString();
    QString m_program = text(KESTDESK);
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};
