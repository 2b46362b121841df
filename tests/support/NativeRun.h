// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>

/// Runs a program with words that need not be text: any bytes, as the system takes them.
struct NativeRun
{
    int exitCode = -1; ///< also when it did not end by itself
    QByteArray output;
    QByteArray errors;

    static NativeRun of(const QString& program, const QList<QByteArray>& words,
                        const QString& folder, const QProcessEnvironment& environment)
    {
        constexpr int patience = 60000; // ms
        QString script = QStringLiteral("exec \"$0\"");
        for (const QByteArray& word : words) {
            script += QStringLiteral(" \"$(printf '");
            for (const char byte : word) {
                script +=
                    QStringLiteral("\\%1").arg(static_cast<uchar>(byte), 3, 8, QLatin1Char('0'));
            }
            script += QStringLiteral("')\"");
        }
        QProcess process;
        process.setWorkingDirectory(folder);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script, program});
        NativeRun result;
        if (!process.waitForFinished(patience)) {
            process.kill();
            process.waitForFinished();
        } else if (process.exitStatus() == QProcess::NormalExit) {
            result.exitCode = process.exitCode();
        }
        result.output = process.readAllStandardOutput();
        result.errors = process.readAllStandardError();
        return result;
    }
};
