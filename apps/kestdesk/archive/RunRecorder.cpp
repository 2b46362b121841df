// SPDX-License-Identifier: MIT
#include "RunRecorder.h"

#include "RecordedMessage.h"
#include "RecordedRun.h"
#include "RunFacts.h"
#include "RunOptionWords.h"

#include <utility>

namespace {

// A repeated run does not depend on the current launch options.
void addRepeated(const RunRecord& repeated, RunRecord& record)
{
    record.repeats = repeated.number;
    if (RecordedRun::hasCommand(repeated)) {
        record.leftOutHosts = repeated.leftOutHosts;
        record.environment = repeated.environment;
        record.launchOptions = repeated.launchOptions;
    }
}

} // namespace

RunRecorder::RunRecorder(Run& run, Face face, RunArchive archive, const RunArchive::Limits& limits,
                         QObject* parent)
    : QObject(parent), m_face(face), m_limits(limits), m_writer(std::move(archive))
{
    connect(&run, &Run::stateChanged, this, [this, &run] { onStateChanged(run); });
    connect(&run, &Run::messageReceived, this,
            [this, &run](const common_IProcessMessage& message) { add(run, message); });
    connect(&run, &Run::ended, this, [this, &run] { end(run); });
    connect(&m_writer, &RecordWriter::failed, this, &RunRecorder::failed);
    connect(&m_writer, &RecordWriter::created, this, [this](int number) {
        m_number = number;
        Q_EMIT created(number);
    });
    connect(&m_writer, &RecordWriter::finished, this, [this] {
        m_isFinished = true;
        Q_EMIT finished();
    });
}

void RunRecorder::setRepeated(const RunRecord& record)
{
    m_repeated = record;
    m_options = RunOptionWords::options(record.runOptions);
}

void RunRecorder::onStateChanged(const Run& run)
{
    if (run.state() == Run::State::Running) {
        begin(run);
    }
}

void RunRecorder::begin(const Run& run)
{
    if (std::exchange(m_hasBegun, true)) {
        return;
    }
    RunRecord record = RunFacts::atStart(run, m_options);
    if (m_repeated) {
        addRepeated(*m_repeated, record);
    }
    record.face = QLatin1String(m_face == Face::Window ? "window" : "terminal");
    const qint64 share = m_limits.megabytes * Q_INT64_C(1024) * 1024 / 10;
    m_writer.setMostBytes(share);
    m_writer.begin(record, RunFacts::machinesFile(run));
}

// Components may report the same percentage very often.
void RunRecorder::add(const Run& run, const common_IProcessMessage& message)
{
    const RecordedMessage::Type type = message.getType();
    const QString text = message.getText();
    const bool isPhase = type == common_IProcessMessage::Percentage;
    if (isPhase || type == common_IProcessMessage::TotalPercentage) {
        QString& last = isPhase ? m_percentage : m_totalPercentage;
        if (std::exchange(last, text) == text) {
            return;
        }
    }
    m_writer.append({run.elapsed(), type, text});
}

// A refused run has no record yet.
void RunRecorder::end(const Run& run)
{
    begin(run);
    m_writer.finish(RunFacts::atEnd(run), m_limits);
}
