// SPDX-License-Identifier: MIT
#include "FaultTable.h"

#include <QFile>
#include <QRegularExpression>

FaultTable FaultTable::read(const QString& path)
{
    FaultTable table;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        table.m_errors.append(
            QStringLiteral("%1 cannot be read: %2").arg(path, file.errorString()));
        return table;
    }
    int number = 0;
    while (!file.atEnd()) {
        table.readLine(++number, QString::fromUtf8(file.readLine()).trimmed());
    }
    table.checkLast();
    return table;
}

QStringList FaultTable::numberingErrors(int count) const
{
    QStringList errors;
    int last = 0;
    for (const Fault& fault : m_faults) {
        if (fault.number <= last || fault.number > count) {
            errors.append(QStringLiteral("fault %1 is out of order").arg(fault.number));
        }
        for (int missing = last + 1; missing < fault.number; ++missing) {
            errors.append(QStringLiteral("fault %1 is missing").arg(missing));
        }
        last = qMax(last, fault.number);
    }
    for (int missing = last + 1; missing <= count; ++missing) {
        errors.append(QStringLiteral("fault %1 is missing").arg(missing));
    }
    return errors;
}

void FaultTable::readLine(int number, const QString& line)
{
    static const QRegularExpression heading(QStringLiteral("^(\\d+)\\. (.+)$"));
    static const QRegularExpression entry(QStringLiteral("^(then|by): +(.+)$"));
    if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) {
        return;
    }
    const QRegularExpressionMatch begin = heading.match(line);
    const QRegularExpressionMatch match = entry.match(line);
    if (begin.hasMatch()) {
        checkLast();
        m_faults.append({begin.captured(1).toInt(), begin.captured(2), QString(), {}});
    } else if (!match.hasMatch() || m_faults.isEmpty()) {
        addError(number, QStringLiteral("\"%1\" is not understood").arg(line));
    } else if (match.captured(1) == QLatin1String("by")) {
        readTest(number, match.captured(2));
    } else if (!m_faults.constLast().promise.isEmpty()) {
        addError(number, QStringLiteral("a second \"then\""));
    } else {
        m_faults.last().promise = match.captured(2);
    }
}

void FaultTable::readTest(int number, const QString& words)
{
    static const QRegularExpression test(QStringLiteral("^(\\S+) +(\\w+)(:(.+))?$"));
    const QRegularExpressionMatch match = test.match(words);
    if (match.hasMatch()) {
        m_faults.last().tests.append({match.captured(1), match.captured(2), match.captured(4)});
    } else {
        addError(number, QStringLiteral("\"%1\" is not PROGRAM FUNCTION[:ROW]").arg(words));
    }
}

void FaultTable::checkLast()
{
    if (m_faults.isEmpty()) {
        return;
    }
    const Fault& fault = m_faults.constLast();
    if (fault.promise.isEmpty()) {
        m_errors.append(
            QStringLiteral("fault %1 does not say what must be true").arg(fault.number));
    }
    if (fault.tests.isEmpty()) {
        m_errors.append(QStringLiteral("fault %1 has no test").arg(fault.number));
    }
}

void FaultTable::addError(int line, const QString& reason)
{
    m_errors.append(QStringLiteral("line %1: %2").arg(line).arg(reason));
}
