// SPDX-License-Identifier: MIT
#include "RunOutcome.h"

#include "ProcessEnd.h"

namespace {

constexpr int complete = 100;

// Indexed by RunOutcome::Kind.
constexpr const char* words[] = {"valid", "fault", "could not start", "stopped"};

} // namespace

RunOutcome RunOutcome::notStarted()
{
    return RunOutcome(Kind::NotStarted);
}

RunOutcome RunOutcome::stopped()
{
    return RunOutcome(Kind::Stopped);
}

RunOutcome RunOutcome::of(const ProcessEnd& end, int totalPercentage, bool isStopRequested)
{
    if (end.isGood() && totalPercentage == complete) {
        return RunOutcome(Kind::Valid);
    }
    if (isStopRequested) {
        return stopped();
    }
    RunOutcome outcome(end.isRequested() ? Kind::Stopped : Kind::Fault);
    outcome.m_cause = end.isRequested() ? QString() : end.name();
    outcome.m_reason =
        end.isGood() ? QStringLiteral("ended by itself, but reported only %1 % of the run as done")
                           .arg(totalPercentage)
                     : end.text();
    return outcome;
}

int RunOutcome::percentage(const QString& reported, int before)
{
    const int percentage = reported.toInt();
    return percentage >= 0 && percentage <= complete ? percentage : before;
}

QString RunOutcome::word(Kind kind)
{
    return QLatin1String(words[static_cast<int>(kind)]);
}

QString RunOutcome::title() const
{
    return m_cause.isEmpty() ? word() : QStringLiteral("%1, %2").arg(word(), m_cause);
}
