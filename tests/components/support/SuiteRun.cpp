// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <QDir>
#include <QFile>
#include <QProcess>

namespace {

constexpr int patience = 60000; // ms

} // namespace

QStringList SuiteResult::bodies(const QString& marker) const
{
    const QString start = QStringLiteral("-*-") + marker + QStringLiteral("-*-");
    QStringList result;
    for (const QString& line : lines) {
        if (line.startsWith(start)) {
            const QString body = line.mid(start.size());
            result.append(marker == QLatin1String("file") ? QDir::fromNativeSeparators(body)
                                                          : body);
        }
    }
    return result;
}

bool SuiteResult::hasText(const QString& text) const
{
    return lines.join(QLatin1Char('\n')).contains(text);
}

QString prekestProgram()
{
    return QStringLiteral(KEST_PREKEST_PROGRAM);
}

QString runkestProgram()
{
    return QStringLiteral(KEST_RUNKEST_PROGRAM);
}

QString optkestProgram()
{
    return QStringLiteral(KEST_OPTKEST_PROGRAM);
}

QString fakeEngineProgram()
{
    return QStringLiteral(KEST_FAKE_ENGINE_PROGRAM);
}

QString suiteHome()
{
    return QStringLiteral(KEST_SUITE_HOME);
}

QProcessEnvironment environmentWith(const QString& name, const QString& value)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(name, value);
    return environment;
}

QProcessEnvironment fakeEngine(const QString& part)
{
    QProcessEnvironment environment =
        environmentWith(QStringLiteral("KEST_NEC2C"), fakeEngineProgram());
    environment.insert(QStringLiteral("FAKE_ENGINE"), part);
    return environment;
}

SuiteResult runSuite(const QString& program, const QStringList& arguments, const QString& folder,
                     const QProcessEnvironment& environment)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    SuiteResult result;
    if (!process.waitForFinished(patience)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitCode();
    result.isCrash = process.exitStatus() == QProcess::CrashExit;
    result.lines = QString::fromUtf8(process.readAllStandardOutput().replace("\r\n", "\n"))
                       .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    result.errorOutput = process.readAllStandardError();
    return result;
}

QString writeFile(const QString& folder, const QString& name, const QByteArray& content)
{
    const QString path = QDir(folder).filePath(name);
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    return isWritten ? path : QString();
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString copyModel(const QString& name, const QString& folder)
{
    return writeFile(folder, name, readFile(suiteHome() + QStringLiteral("/models/") + name));
}
