// SPDX-License-Identifier: MIT
#include "RunProblem.h"

#include "MessageReader.h"
#include "ProblemCures.h"
#include "RecordFolder.h"

namespace {

constexpr qint64 mostBytes = 8LL * 1024 * 1024; // of the messages

QString errorWithCure(const RunRecord& record)
{
    QString found;
    MessageReader(RecordFolder(record.folder).messagesFile())
        .read(
            [&found](const RecordedMessage& message) {
                if (message.type == common_IProcessMessage::Error && found.isEmpty() &&
                    ProblemCures::find(message.text) != nullptr) {
                    found = message.text;
                }
            },
            mostBytes);
    return found;
}

} // namespace

QString RunProblem::of(const RunRecord& record)
{
    if (record.state != RunRecord::State::Fault && record.state != RunRecord::State::NotStarted) {
        return QString();
    }
    QString error = errorWithCure(record);
    if (!error.isEmpty()) {
        return error;
    }
    return record.problem.isEmpty() ? record.reason : record.problem;
}
