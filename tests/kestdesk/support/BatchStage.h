// SPDX-License-Identifier: MIT
#pragma once

#include "../../support/UnixLines.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// kestdesk in a terminal, with an installation of its own, in which the tests' child process plays
/// the components.
class BatchStage
{
public:
    struct Result
    {
        int exitCode = -1;
        QByteArray output;
        QByteArray errors;
    };

    void reset()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_home = m_folder->filePath(text("home"));
        m_variables.clear();
        QVERIFY(QDir().mkpath(m_home + text("/bin")));
        QVERIFY(QFile(m_home + text("/default.ini")).open(QIODevice::WriteOnly));
        QVERIFY(QFile::link(text(KEST_TEST_CHILD), m_home + text("/bin/runkest")));
        QVERIFY(QFile::link(text(KEST_TEST_CHILD), m_home + text("/bin/prekest")));
    }

    /// A model for the fake component, which does what stands in it.
    QString model(const QString& name, const QStringList& commands) const
    {
        QFile file(m_folder->filePath(name + text(".commands")));
        if (!file.open(QIODevice::WriteOnly)) {
            qFatal("no model");
        }
        file.write(commands.join(QLatin1Char('\n')).toUtf8() + "\n");
        return file.fileName();
    }

    QStringList environment() const
    {
        QStringList result = QProcess::systemEnvironment();
        result.append(text("KEST_HOME=") + m_home);
        result.append(text("KEST_USER_HOME=") + m_folder->filePath(text("user")));
        result.append(text("LC_ALL=C.UTF-8"));
        result.append(text("TERM=xterm"));
        return result + m_variables;
    }

    Result run(const QStringList& arguments, const QString& input = {}) const
    {
        QProcess process;
        start(process, arguments);
        process.write(input.toUtf8());
        process.waitForFinished(60000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                unixLines(process.readAllStandardOutput()),
                unixLines(process.readAllStandardError())};
    }

    Result runModel(const QStringList& commands) const
    {
        return run({text("--non-interactive"), model(text("model"), commands)});
    }

    void start(QProcess& process, const QStringList& arguments) const
    {
        process.setEnvironment(environment());
        process.start(text(KESTDESK), arguments);
        QVERIFY(process.waitForStarted());
    }

protected:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_home;
    QStringList m_variables; ///< as "NAME=value"
};
