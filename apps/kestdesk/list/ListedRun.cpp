// SPDX-License-Identifier: MIT
#include "ListedRun.h"

#include "ReasonText.h"
#include "RunTexts.h"
#include "WindowRun.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSysInfo>

#include <algorithm>
#include <iterator>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ListedRun)
};

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

QString sentence(QString clause)
{
    clause[0] = clause.at(0).toUpper();
    return clause + QLatin1Char('.');
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
        return Texts::tr("not started");
    }
    const bool hasOutcome = record.state == State::Fault && !record.outcome.isEmpty();
    return ReasonText::shown(hasOutcome ? record.outcome : RunRecord::word(record.state));
}

QString ListedRun::explanation() const
{
    if (run != nullptr) {
        return run->explanation();
    }
    const bool isAlone = record.reason.isEmpty() && record.state != State::Damaged;
    const QString state = ReasonText::shown(RunRecord::word(record.state));
    QStringList sentences{isAlone ? stateText() : state + QLatin1Char('.')};
    if (!record.reason.isEmpty()) {
        sentences.append(Texts::tr("It %1.").arg(ReasonText::shown(record.reason)));
    }
    if (!record.problem.isEmpty()) {
        sentences.append(sentence(ReasonText::shown(record.problem)));
    }
    return sentences.join(QLatin1Char(' '));
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
        parts.append(RunTexts::counted(errors(), "error"));
    }
    if (warnings() > 0) {
        parts.append(RunTexts::counted(warnings(), "warning"));
    }
    return parts.join(QStringLiteral(", "));
}

QString ListedRun::place() const
{
    const bool isHere = record.host.isEmpty() || record.host == QSysInfo::machineHostName();
    const QString face = ReasonText::shown(record.face);
    const bool isWindow = record.face.isEmpty() || record.face == QLatin1String("window");
    if (isHere) {
        return isWindow ? QString() : face;
    }
    return Texts::tr("%1 on %2").arg(face, record.host);
}
