// SPDX-License-Identifier: MIT
#include "InterruptedRun.h"

#include "MessageReader.h"
#include "MessageTotals.h"
#include "RecordFolder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

// The reported files that exist, as the component has named them.
void addFile(const QString& name, RunRecord& record)
{
    const QFileInfo file(QFileInfo(record.model).dir(), name);
    const bool isKnown =
        std::any_of(record.files.cbegin(), record.files.cend(),
                    [&file](const auto& each) { return each.path == file.absoluteFilePath(); });
    if (!isKnown) {
        record.files.append({file.absoluteFilePath(), file.isFile() ? file.size() : -1, {}, {}});
    }
}

} // namespace

void InterruptedRun::close(const QString& folder)
{
    RecordFolder files(folder);
    auto record = files.read();
    if (!record || record->state != RunRecord::State::Interrupted || !record->outcome.isEmpty()) {
        return;
    }
    MessageTotals totals;
    MessageReader(files.messagesFile()).readAll([&totals, &record](const RecordedMessage& message) {
        totals.add(message);
        if (message.type == common_IProcessMessage::File) {
            addFile(message.text, *record);
        }
    });
    totals.fill(*record);
    record->duration = totals.lastTime();
    record->ended = record->started.addMSecs(record->duration);
    record->outcome = RunRecord::word(record->state);
    record->reason = QStringLiteral("was cut off: kestdesk, which followed it, was killed, or the "
                                    "computer was switched off");
    files.writeEnd(*record);
}
