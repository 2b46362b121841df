// SPDX-License-Identifier: MIT
#include "TaskCounts.h"

#include "HostList.h"
#include "MachinesLine.h"

#include <QRegularExpression>
#include <QStringList>

namespace suite {

TaskCounts TaskCounts::parse(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([0-9]{1,9})(?:\\(x([0-9]{1,9})\\))?\\z"));
    TaskCounts result;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString& part : parts) {
        const QRegularExpressionMatch match = pattern.match(part);
        const int count = match.captured(1).toInt();
        const int hosts = match.capturedLength(2) > 0 ? match.captured(2).toInt() : 1;
        if (count < 1 || hosts < 1) {
            return {{},
                    QStringLiteral("\"%1\" is no number of processes such as \"4\" or \"4(x2)\"")
                        .arg(part.left(HostList::longestShown))};
        }
        if (count > MachinesLine::mostProcesses) {
            return {{},
                    QStringLiteral("more than %1 processes are on one host")
                        .arg(MachinesLine::mostProcesses)};
        }
        if (hosts > HostList::mostHosts - result.counts.size()) {
            return {{}, QStringLiteral("there are more than %1 hosts").arg(HostList::mostHosts)};
        }
        result.counts += QVector<int>(hosts, count);
    }
    return result;
}

} // namespace suite
