#include "ListedRun.h"

#include "WindowRun.h"

#include <QFileInfo>
#include <QSysInfo>

#include <algorithm>
#include <iterator>

namespace {

using State = RunRecord::State;

// clang-format off
const struct { State state; const char* icon; } stateIcons[] = {
    {State::Running,     "play"},
    {State::Interrupted, "warning"},
    {State::Valid,       "valid"},
    {State::Fault,       "fault"},
    {State::NotStarted,  "fault"},
    {State::Stopped,     "exclude"},
    {State::Damaged,     "warning"},
};
// clang-format on

State stateOf(Run::State state)
{
    switch (state) {
    case Run::State::Running:
    case Run::State::Stopping:
        return State::Running;
    case Run::State::Valid:
        return State::Valid;
    case Run::State::Fault:
        return State::Fault;
    case Run::State::Stopped:
        return State::Stopped;
    default:
        return State::NotStarted;
    }
}

QString counted(int count, const char* noun)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(noun),
                                                    count == 1 ? QString() : QStringLiteral("s"));
}

QString sentence(QString clause)
{
    clause[0] = clause.at(0).toUpper();
    return QStringLiteral(" %1.").arg(clause);
}

} // namespace

QString ListedRun::model() const
{
    return run != nullptr ? run->run().model() : record.model;
}

QString ListedRun::folder() const
{
    return model().isEmpty() ? record.folder : QFileInfo(model()).absolutePath();
}

QString ListedRun::component() const
{
    return run != nullptr ? run->run().componentName() : record.component;
}

int ListedRun::number() const
{
    return run != nullptr ? run->number() : record.number;
}

State ListedRun::state() const
{
    return run != nullptr ? stateOf(run->run().state()) : record.state;
}

// The record's outcome of a run that was not started is longer than the list needs.
QString ListedRun::stateText() const
{
    if (run != nullptr) {
        return run->stateText();
    }
    if (record.state == State::NotStarted) {
        return QStringLiteral("not started");
    }
    const bool hasOutcome = record.state == State::Fault && !record.outcome.isEmpty();
    return hasOutcome ? record.outcome : RunRecord::word(record.state);
}

QString ListedRun::explanation() const
{
    if (run != nullptr) {
        return run->explanation();
    }
    const bool isAlone = record.reason.isEmpty() && record.state != State::Damaged;
    QString text = isAlone ? stateText() : RunRecord::word(record.state) + QLatin1Char('.');
    if (!record.reason.isEmpty()) {
        text += QStringLiteral(" It %1.").arg(record.reason);
    }
    if (!record.problem.isEmpty()) {
        text += sentence(record.problem);
    }
    return text;
}

const char* ListedRun::icon() const
{
    if (run != nullptr && run->run().state() == Run::State::Stopping) {
        return "exclude";
    }
    return std::find_if(std::begin(stateIcons), std::end(stateIcons),
                        [this](const auto& row) { return row.state == state(); })
        ->icon;
}

int ListedRun::progress() const
{
    return run != nullptr ? run->run().totalPercentage() : record.totalPercentage;
}

qint64 ListedRun::elapsed() const
{
    if (run != nullptr) {
        return run->run().elapsed();
    }
    return record.state == State::Running
               ? std::max<qint64>(0, record.started.msecsTo(QDateTime::currentDateTimeUtc()))
               : record.duration;
}

QDateTime ListedRun::started() const
{
    return run != nullptr ? run->started() : record.started;
}

int ListedRun::errors() const
{
    return run != nullptr ? run->errors() : record.errors;
}

int ListedRun::warnings() const
{
    return run != nullptr ? run->warnings() : record.warnings;
}

QString ListedRun::messageText() const
{
    QStringList parts;
    if (errors() > 0) {
        parts.append(counted(errors(), "error"));
    }
    if (warnings() > 0) {
        parts.append(counted(warnings(), "warning"));
    }
    return parts.join(QStringLiteral(", "));
}

QString ListedRun::place() const
{
    const bool isHere = record.host.isEmpty() || record.host == QSysInfo::machineHostName();
    const bool isWindow = record.face.isEmpty() || record.face == QLatin1String("window");
    if (isHere) {
        return isWindow ? QString() : record.face;
    }
    return QStringLiteral("%1 on %2").arg(record.face, record.host);
}
