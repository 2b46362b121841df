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

/// "kestdesk options ..." as users run it, with an installation and a user's folder of its own.
class OptionsStage
{
public:
    struct Result
    {
        int exitCode = -1;
        QString output;
        QString errors;
    };

    /// Makes new folders; the user's does not exist yet.
    void reset()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        if (!QDir(m_folder->path()).mkpath(text("home"))) {
            qFatal("no folder");
        }
        m_variables = QStringList{text("KEST_HOME=") + m_folder->filePath(text("home")),
                                  text("KEST_USER_HOME=") + m_folder->filePath(text("user"))};
    }

    void start(QProcess& process, const QString& program, const QStringList& arguments) const
    {
        process.setEnvironment(QProcess::systemEnvironment() + m_variables +
                               QStringList{text("LC_ALL=C.UTF-8")});
        process.start(program, arguments);
    }

    Result runProgram(const QString& program, const QStringList& arguments) const
    {
        QProcess process;
        start(process, program, arguments);
        process.waitForFinished();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(unixLines(process.readAllStandardOutput())),
                QString::fromUtf8(unixLines(process.readAllStandardError()))};
    }

    Result options(const QStringList& words) const
    {
        return runProgram(text(KESTDESK), QStringList(text("options")) + words);
    }

    QString value(const char* name) const
    {
        return options({text("get"), text(name)}).output.trimmed();
    }

    void writeDefaults(const QByteArray& content) const
    {
        QFile file(m_folder->filePath(text("home/default.ini")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("no default.ini");
        }
    }

    QString settingsFile() const { return m_folder->filePath(text("user/kest.ini")); }

protected:
    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_variables; ///< as "NAME=value"
};
