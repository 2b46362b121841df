// SPDX-License-Identifier: MIT
#pragma once

#include <UnixLines.h>

#include <QCoreApplication>
#include <QProcess>
#include <QString>
#include <QStringList>

/// Runs the test program itself once more, to do in a process of its own what would end this one
/// or needs another application object: main() looks at taskOfThisRun() first.
class ChildRun
{
public:
    explicit ChildRun(const QString& task, const QStringList& arguments = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(variable), task);
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        m_process.setProcessEnvironment(environment);
        m_process.start(QCoreApplication::applicationFilePath(), arguments);
        m_isOver = m_process.waitForFinished();
        m_output = QString::fromUtf8(unixLines(m_process.readAllStandardOutput()));
        m_error = QString::fromUtf8(unixLines(m_process.readAllStandardError()));
    }

    /// Empty in the program that the tests run in.
    static QString taskOfThisRun() { return qEnvironmentVariable(variable); }

    bool hasEndedWell() const
    {
        return m_isOver && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() == 0;
    }
    bool hasCrashed() const { return m_isOver && m_process.exitStatus() == QProcess::CrashExit; }
    QString output() const { return m_output; }
    QString error() const { return m_error; }

private:
    static constexpr const char* variable = "KEST_TEST_TASK";

    QProcess m_process;
    bool m_isOver = false;
    QString m_output;
    QString m_error;
};
