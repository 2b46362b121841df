// SPDX-License-Identifier: MIT
#include "RunAgain.h"

#include "LeaveOutQuestion.h"
#include "ReasonText.h"
#include "ResumedRun.h"

#include <HostRemoval.h>
#include <VisibleText.h>

#include <common_UserQuery.h>

#include <QMessageBox>

#include <utility>

namespace {

enum class Choice { AsItWas, AsItIs, Cancel };

QString sentence(QString clause)
{
    clause[0] = clause.at(0).toUpper();
    return clause + QLatin1Char('.');
}

// The choices depend on which files exist.
Choice ask(const RunRecord& record, bool isThere, bool hasCopy, QWidget* window)
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
    common_UserQuery query(RunAgain::tr("Run again"), text, common_UserQuery::Warning, window,
                           QString());
    if (hasCopy) {
        query.addOption(RunAgain::tr("As it &was"), QMessageBox::AcceptRole,
                        common_UserQuery::EnterDefault);
    }
    if (isThere) {
        query.addOption(RunAgain::tr("As it is &now"), QMessageBox::ActionRole);
    }
    query.addOption(RunAgain::tr("Cancel"), QMessageBox::RejectRole,
                    common_UserQuery::EscapeDefault);
    switch (query.display()) {
    case QMessageBox::AcceptRole:
        return Choice::AsItWas;
    case QMessageBox::ActionRole:
        return Choice::AsItIs;
    default:
        return Choice::Cancel;
    }
}

// Why the run cannot do without the host; empty when it can.
QString obstacleOf(const suite::HostRemoval& removal, const QString& host)
{
    const QString name = suite::visibleText(host);
    if (removal.lines().isEmpty()) {
        return RunAgain::tr("The host %1 is not in the machines file of the run.").arg(name);
    }
    return removal.leavesHosts()
               ? QString()
               : RunAgain::tr("%1 is the only host in the machines file of the run.").arg(name);
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
        const suite::HostRemoval removal(RecordedRun::machinesFile(*record).value_or(QByteArray()),
                                         {host});
        const QString problem = obstacleOf(removal, host);
        const QStringList lines = removal.lines();
        answer([this, record, host, problem, lines] {
            if (problem.isEmpty()) {
                leaveOut(*record, host, lines);
            } else {
                Q_EMIT hostNotLeftOut(*record, host, problem);
            }
        });
    });
}

void RunAgain::leaveOut(RunRecord record, const QString& host, const QStringList& lines)
{
    const QPointer<RunAgain> guard(this); // the window may be destroyed meanwhile
    const auto answer = LeaveOutQuestion::ask(record.number, host, lines, m_window);
    if (guard.isNull()) {
        return;
    }
    if (answer == LeaveOutQuestion::Answer::EditFile) {
        Q_EMIT hostNotLeftOut(record, host, QString());
    } else if (answer == LeaveOutQuestion::Answer::RunAgain) {
        record.leftOutHosts.append(host);
        prepare(record);
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
    const Choice choice = ask(record, state == ModelState::Changed, hasCopy, m_window);
    if (guard.isNull()) {
        return;
    }
    if (choice == Choice::AsItWas) {
        writeModel(record);
    } else if (choice == Choice::AsItIs) {
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
