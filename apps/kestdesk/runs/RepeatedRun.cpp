// SPDX-License-Identifier: MIT
#include "RepeatedRun.h"

#include "ReasonText.h"

#include <BatchSession.h>
#include <Component.h>
#include <ErrorOutput.h>
#include <Leftovers.h>
#include <RecordedRun.h>
#include <ResumedRun.h>
#include <RunWithoutHost.h>

#include <QCoreApplication>

#include <optional>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RepeatedRun)
};

constexpr int exitNotStarted = 2;

int fail(const QString& problem)
{
    ErrorOutput::print(problem);
    return exitNotStarted;
}

// Nothing, after a message, if the run cannot do without a host.
std::optional<RunRecord> withoutHosts(RunRecord record, const QStringList& hosts)
{
    for (const QString& host : hosts) {
        const QString obstacle = RunWithoutHost::obstacle(record, host);
        if (!obstacle.isEmpty()) {
            ErrorOutput::print(
                Texts::tr("run %1 is not repeated. %2").arg(record.number).arg(obstacle));
            return std::nullopt;
        }
        const QStringList lines = RunWithoutHost::lines(record, host);
        ErrorOutput::print(Texts::tr("a comment in the copy of the machines file: %1")
                               .arg(lines.join(QStringLiteral(", "))));
        record = RunWithoutHost::of(record, host);
    }
    return record;
}

int execOn(const QString& model, const RunRecord& record, bool isJson)
{
    Leftovers::remove();
    BatchSession session(*Component::find(record.component), {}, {model});
    session.repeat(record);
    session.setJson(isJson);
    return session.exec();
}

} // namespace

int RepeatedRun::exec(const RunRecord& record, const QStringList& leftOutHosts, bool isJson)
{
    if (Component::find(record.component) == nullptr) {
        return fail(Texts::tr("this kestdesk knows no component %1").arg(record.component));
    }
    const auto repeated = withoutHosts(record, leftOutHosts);
    if (!repeated) {
        return exitNotStarted;
    }
    QString model = record.model;
    if (RecordedRun::modelState(record) != RecordedRun::ModelState::Unchanged) {
        if (!RecordedRun::hasModelCopy(record)) {
            return fail(Texts::tr("there is no model %1 as it was, and the record of run %2 has "
                                  "no copy of it")
                            .arg(record.model)
                            .arg(record.number));
        }
        const RecordedRun::ModelFile copy = RecordedRun::writeModel(record);
        if (copy.path.isEmpty()) {
            return fail(ReasonText::shown(copy.problem));
        }
        model = copy.path;
        ErrorOutput::print(
            Texts::tr("%1 has been changed since run %2; as it was then, it is run as %3")
                .arg(record.model)
                .arg(record.number)
                .arg(model));
    }
    return execOn(model, *repeated, isJson);
}

int RepeatedRun::resume(const RunRecord& record, const QStringList& leftOutHosts, bool isJson)
{
    const QString obstacle = ResumedRun::obstacle(record);
    if (!obstacle.isEmpty()) {
        return fail(Texts::tr("run %1 is not resumed. %2").arg(record.number).arg(obstacle));
    }
    const auto repeated = withoutHosts(record, leftOutHosts);
    return repeated ? execOn(record.model, ResumedRun::of(*repeated), isJson) : exitNotStarted;
}
