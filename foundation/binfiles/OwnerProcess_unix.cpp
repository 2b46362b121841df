// SPDX-License-Identifier: MIT
#include "OwnerProcess.h"

#include <RunningProcesses.h>

#include <QFile>
#include <QFileInfo>

#include <optional>

namespace {

bool isThere(qint64 process)
{
    return RunningProcesses::startTime(process) != std::optional<quint64>(0);
}

} // namespace

QString OwnerProcess::program(qint64 process)
{
    // The system adds this when the program's file was replaced meanwhile.
    const QString replaced = QStringLiteral(" (deleted)");
    QString name =
        QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(process))).fileName();
    if (name.endsWith(replaced)) {
        name.chop(replaced.size());
    }
    return name;
}

bool OwnerProcess::hasEnded(qint64 process, const QString& program)
{
    if (!isThere(process)) {
        return true;
    }
    const QString running = OwnerProcess::program(process);
    return !running.isEmpty() && !program.isEmpty() && running != program;
}

bool OwnerProcess::isEnding(qint64 process)
{
    return RunningProcesses::isEnding(process);
}
