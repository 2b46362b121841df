// SPDX-License-Identifier: MIT
#include "RunAgain.h"

#include "LeaveOutQuestion.h"
#include "ReasonText.h"
#include "ResumedRun.h"
#include "RunWithoutHost.h"
#include "TwoWayQuestion.h"

#include <VisibleText.h>

#include <utility>

namespace {

using Answer = TwoWayQuestion::Answer;

QString sentence(QString clause)
{
    clause[0] = clause.at(0).toUpper();
    return clause + QLatin1Char('.');
}

// Which model is to be run: as it was, or as it is. The choices depend on which files exist.
TwoWayQuestion::Answer ask(const RunRecord& record, bool isThere, bool hasCopy, QWidget* window)
{
    const QString name = suite::visibleFileName(record.model);
    const QString text =
        isThere ? RunAgain::tr("The model %1 has changed since run %2.\n\nWhich one is to be run?")
                      .arg(name)
                      .arg(record.number)
                : RunAgain::tr("The model %1 is no longer there.\n\nThe record of run %2 has it as "
                               "it was.")
                      .arg(name)
                      .arg(record.number);
    const TwoWayQuestion question = {RunAgain::tr("Run again"), text,
                                     hasCopy ? RunAgain::tr("As it &was") : QString(),
                                     isThere ? RunAgain::tr("As it is &now") : QString()};
    return question.ask(window);
}

} // namespace

RunAgain::RunAgain(RunArchive archive, QWidget* window)
    : QObject(window), m_archive(std::move(archive)), m_window(window)
{}

void RunAgain::request(int number)
{
    m_disk.post([this, archive = m_archive, number](const DiskThread::Answer& answer) {
        const auto record = archive.record(number);
        if (!record) {
            answer([this, number] { failWithoutRecord(number); });
            return;
        }
        answer([this, record] { prepare(*record); });
    });
}

void RunAgain::prepare(const RunRecord& record)
{
    m_disk.post([this, record](const DiskThread::Answer& answer) {
        const ModelState state = RecordedRun::modelState(record);
        const bool hasCopy = RecordedRun::hasModelCopy(record);
        answer([this, record, state, hasCopy] { decide(record, state, hasCopy); });
    });
}

void RunAgain::requestWithout(int number, const QString& host)
{
    m_disk.post([this, archive = m_archive, number, host](const DiskThread::Answer& answer) {
        const auto record = archive.record(number);
        if (!record) {
            answer([this, number] { failWithoutRecord(number); });
            return;
        }
        const QString problem = RunWithoutHost::obstacle(*record, host);
        const QStringList lines = RunWithoutHost::lines(*record, host);
        answer([this, record, host, problem, lines] {
            if (problem.isEmpty()) {
                leaveOut(*record, host, lines);
            } else {
                Q_EMIT hostNotLeftOut(*record, host, problem);
            }
        });
    });
}

void RunAgain::leaveOut(const RunRecord& record, const QString& host, const QStringList& lines)
{
    const QPointer<RunAgain> guard(this); // the window may be destroyed meanwhile
    const auto answer = LeaveOutQuestion::ask(record.number, host, lines, m_window);
    if (guard.isNull()) {
        return;
    }
    if (answer == Answer::Second) {
        Q_EMIT hostNotLeftOut(record, host, QString());
    } else if (answer == Answer::First) {
        prepare(RunWithoutHost::of(record, host));
    }
}

void RunAgain::resume(int number)
{
    m_disk.post([this, archive = m_archive, number](const DiskThread::Answer& answer) {
        const auto record = archive.record(number);
        if (!record) {
            answer([this, number] { failWithoutRecord(number); });
            return;
        }
        const QString obstacle = ResumedRun::obstacle(*record);
        answer([this, record, obstacle] {
            if (obstacle.isEmpty()) {
                Q_EMIT readyToResume(ResumedRun::of(*record));
            } else {
                Q_EMIT failed(tr("Run %1 is not resumed. %2").arg(record->number).arg(obstacle));
            }
        });
    });
}

void RunAgain::failWithoutRecord(int number)
{
    Q_EMIT failed(tr("There is no record of run %1 any more.").arg(number));
}

void RunAgain::decide(const RunRecord& record, ModelState state, bool hasCopy)
{
    if (state == ModelState::Unchanged) {
        Q_EMIT ready(record, record.model);
        return;
    }
    if (state == ModelState::Missing && !hasCopy) {
        Q_EMIT failed(tr("The model %1 is no longer there, and the record has no copy.")
                          .arg(suite::visiblePath(record.model)));
        return;
    }
    const QPointer<RunAgain> guard(this); // the window may be destroyed meanwhile
    const Answer answer = ask(record, state == ModelState::Changed, hasCopy, m_window);
    if (guard.isNull()) {
        return;
    }
    if (answer == Answer::First) {
        writeModel(record);
    } else if (answer == Answer::Second) {
        Q_EMIT ready(record, record.model);
    }
}

void RunAgain::writeModel(const RunRecord& record)
{
    m_disk.post([this, record](const DiskThread::Answer& answer) {
        const RecordedRun::ModelFile file = RecordedRun::writeModel(record);
        answer([this, record, file] {
            if (file.path.isEmpty()) {
                Q_EMIT failed(sentence(suite::visibleText(ReasonText::shown(file.problem))));
            } else {
                Q_EMIT ready(record, file.path);
            }
        });
    });
}
