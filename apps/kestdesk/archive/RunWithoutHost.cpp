// SPDX-License-Identifier: MIT
#include "RunWithoutHost.h"

#include "RecordedRun.h"

#include <HostRemoval.h>
#include <VisibleText.h>

#include <QCoreApplication>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RunWithoutHost)
};

suite::HostRemoval removalOf(const RunRecord& record, const QString& host)
{
    return {RecordedRun::machinesFile(record).value_or(QByteArray()), {host}};
}

} // namespace

QString RunWithoutHost::obstacle(const RunRecord& record, const QString& host)
{
    const suite::HostRemoval removal = removalOf(record, host);
    const QString name = suite::visibleText(host);
    if (removal.lines().isEmpty()) {
        return Texts::tr("The host %1 is not in the machines file of the run.").arg(name);
    }
    return removal.leavesHosts()
               ? QString()
               : Texts::tr("%1 is the only host in the machines file of the run.").arg(name);
}

QStringList RunWithoutHost::lines(const RunRecord& record, const QString& host)
{
    return removalOf(record, host).lines();
}

RunRecord RunWithoutHost::of(RunRecord record, const QString& host)
{
    record.leftOutHosts.append(host);
    return record;
}
