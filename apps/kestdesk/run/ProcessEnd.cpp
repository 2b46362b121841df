// SPDX-License-Identifier: MIT
#include "ProcessEnd.h"

#include "EndReasons.h"

#include <common_ProcessRunnerBase.h>

namespace {

// Shells, and components that clean up first, add this to the number of the signal.
constexpr int shellOffset = 128;

QString meaningOf(const EndReasons::Reason* reason)
{
    return reason ? QStringLiteral(": ") + QLatin1String(reason->meaning) : QString();
}

// The reason for an exit code that stands for a signal.
const EndReasons::Reason* signalOf(int exitCode)
{
    return EndReasons::find(true, exitCode - shellOffset);
}

QString crashName(int code)
{
    const EndReasons::Reason* const reason = EndReasons::find(true, code);
    return reason ? QLatin1String(reason->name) : EndReasons::crashNumber(code);
}

QString crashText(int code)
{
    const EndReasons::Reason* const reason = EndReasons::find(true, code);
    const QString number = EndReasons::crashNumber(code);
    if (!reason) {
        return QStringLiteral("was ended by ") + number;
    }
    const QString form =
        reason->isDeed ? QStringLiteral("was %1 (%2)") : QStringLiteral("was ended by %1 (%2)");
    return form.arg(QLatin1String(reason->name), number) + meaningOf(reason);
}

QString exitText(int code)
{
    const EndReasons::Reason* const reason = EndReasons::find(false, code);
    const EndReasons::Reason* const signal = reason ? nullptr : signalOf(code);
    const QString stands =
        signal ? QStringLiteral(", which stands for ") + QLatin1String(signal->name) : QString();
    return QStringLiteral("ended with exit code %1").arg(code) + stands +
           meaningOf(reason ? reason : signal);
}

} // namespace

ProcessEnd ProcessEnd::of(const common_ProcessRunnerBase& runner)
{
    return {runner.crashExit(), runner.exitCode()};
}

bool ProcessEnd::isRequested() const
{
    const EndReasons::Reason* reason = EndReasons::find(m_isCrash, m_code);
    if (!reason && !m_isCrash) {
        reason = signalOf(m_code);
    }
    return reason && reason->isRequest;
}

QString ProcessEnd::name() const
{
    if (isGood()) {
        return QString();
    }
    return m_isCrash ? crashName(m_code) : QStringLiteral("exit code %1").arg(m_code);
}

QString ProcessEnd::text() const
{
    if (isGood()) {
        return QString();
    }
    return m_isCrash ? crashText(m_code) : exitText(m_code);
}
