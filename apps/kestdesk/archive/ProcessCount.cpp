// SPDX-License-Identifier: MIT
#include "ProcessCount.h"

#include <MachinesFile.h>

#include <QStringList>
#include <QThread>

namespace {

// The last occurrence wins.
QString valueOf(const QStringList& words, const QString& name)
{
    const int index = words.lastIndexOf(name);
    return index < 0 ? QString() : words.value(index + 1);
}

int all(const QStringList& words, const suite::MachinesFile& machines)
{
    if (valueOf(words, QStringLiteral("--parallel-authenticate")) == QLatin1String("localonly")) {
        return QThread::idealThreadCount();
    }
    return machines.isValid() ? qMax(machines.total(), 1) : 1;
}

} // namespace

// The words after the first group belong to other components.
int ProcessCount::of(const QStringList& arguments, const suite::MachinesFile& machines)
{
    const QStringList own =
        arguments.mid(0, arguments.indexOf(QStringLiteral("--runkest-options")));
    const QString small = valueOf(own, QStringLiteral("-np"));
    const QString count = small.isEmpty() ? valueOf(own, QStringLiteral("-NP")) : small;
    if (count == QLatin1String("all")) {
        return all(own, machines);
    }
    return qMax(count.toInt(), 1);
}
