// SPDX-License-Identifier: MIT
#include "Hosts.h"

#include <QDir>
#include <QFile>
#include <QProcessEnvironment>

namespace {

QString variable(const char* name)
{
    return qEnvironmentVariable(name);
}

QString namespaceOf(const QString& name)
{
    return variable("KEST_HOSTS_PREFIX") + name;
}

bool runIp(const QStringList& arguments, QByteArray* output = nullptr)
{
    QProcess process;
    process.start(QStringLiteral("ip"), arguments);
    const bool isDone = process.waitForFinished() && process.exitCode() == 0;
    if (output != nullptr) {
        *output = process.readAllStandardOutput();
    }
    return isDone;
}

bool setLink(const QString& host, const QString& state)
{
    return runIp({QStringLiteral("-n"), namespaceOf(QStringLiteral("wire")), QStringLiteral("link"),
                  QStringLiteral("set"), host, state});
}

QString programOf(const QByteArray& process)
{
    QFile file(QStringLiteral("/proc/%1/comm").arg(QString::fromLatin1(process)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

} // namespace

bool Hosts::areThere()
{
    return !variable("KEST_HOSTS_PREFIX").isEmpty();
}

QStringList Hosts::names()
{
    return {QStringLiteral("node1"), QStringLiteral("node2"), QStringLiteral("node3")};
}

void Hosts::prepare(QProcess& process, const QString& program, const QStringList& arguments,
                    const QString& folder)
{
    QStringList words = variable("KEST_HOSTS_ENTER").split(QLatin1Char(' '));
    words += {QStringLiteral("--wd=") + folder, program};
    process.setProgram(words.takeFirst());
    process.setArguments(words + arguments);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), temporaryFolder(QStringLiteral("node1")));
    process.setProcessEnvironment(environment);
}

bool Hosts::cutOff(const QString& host)
{
    return setLink(host, QStringLiteral("down"));
}

bool Hosts::join(const QString& host)
{
    return setLink(host, QStringLiteral("up"));
}

QStringList Hosts::processes(const QString& host)
{
    static const QStringList ownNames = {
        QStringLiteral("sshd"),   QStringLiteral("unshare"),      QStringLiteral("slurmctld"),
        QStringLiteral("slurmd"), QStringLiteral("slurmscriptd"), QStringLiteral("slurmstepd")};
    QByteArray output;
    runIp({QStringLiteral("netns"), QStringLiteral("pids"), namespaceOf(host)}, &output);
    QStringList result;
    const QList<QByteArray> processes = output.split('\n');
    for (const QByteArray& process : processes) {
        const QString program = process.isEmpty() ? QString() : programOf(process);
        if (!program.isEmpty() && !ownNames.contains(program)) {
            result.append(program);
        }
    }
    return result;
}

QStringList Hosts::allProcesses()
{
    QStringList result;
    const QStringList hosts = names();
    for (const QString& host : hosts) {
        const QStringList programs = processes(host);
        for (const QString& program : programs) {
            result.append(host + QLatin1Char(' ') + program);
        }
    }
    return result;
}

QStringList Hosts::temporaryFiles()
{
    QStringList result;
    const QStringList hosts = names();
    for (const QString& host : hosts) {
        result += QDir(temporaryFolder(host)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    return result;
}

QString Hosts::temporaryFolder(const QString& host)
{
    return variable("KEST_HOSTS_FOLDER") + QLatin1Char('/') + host + QStringLiteral("/tmp");
}
