// SPDX-License-Identifier: MIT
#include "ProcessMark.h"

#include "RunningProcesses.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int hashLength = 8;

QString hashOf(const QByteArray& text)
{
    const QByteArray hash = QCryptographicHash::hash(text, QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(hashLength));
}

} // namespace

ProcessMark ProcessMark::own()
{
    ProcessMark mark;
    mark.m_host = hashOf(RunningProcesses::host());
    mark.m_boot = hashOf(RunningProcesses::boot());
    mark.m_processId = RunningProcesses::ownId();
    mark.m_startTime = RunningProcesses::startTime(mark.m_processId).value_or(1);
    return mark;
}

std::optional<ProcessMark> ProcessMark::parse(const QString& word)
{
    static const QRegularExpression expression(
        QRegularExpression::anchoredPattern(QLatin1String(pattern)));
    if (!expression.match(word).hasMatch()) {
        return std::nullopt;
    }
    const QStringList parts = word.split(QLatin1Char('-'));
    ProcessMark mark;
    mark.m_host = parts[0];
    mark.m_boot = parts[1];
    mark.m_processId = parts[2].toLongLong();
    mark.m_startTime = parts[3].toULongLong();
    return mark;
}

QString ProcessMark::word() const
{
    return QStringLiteral("%1-%2-%3-%4").arg(m_host, m_boot).arg(m_processId).arg(m_startTime);
}

bool ProcessMark::hasEnded() const
{
    if (m_host != hashOf(RunningProcesses::host())) {
        return false;
    }
    if (m_boot != hashOf(RunningProcesses::boot())) {
        return true;
    }
    const std::optional<quint64> startTime = RunningProcesses::startTime(m_processId);
    return startTime && *startTime != m_startTime;
}
