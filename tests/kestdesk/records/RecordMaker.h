// SPDX-License-Identifier: MIT
#pragma once

#include "Desk.h"

#include <RecordFolder.h>
#include <RecordedMessage.h>
#include <RunArchive.h>

/// Makes records of runs that there never were.
class RecordMaker
{
public:
    explicit RecordMaker(const Desk& desk) : m_desk(desk), m_archive(desk.path("user/runs")) {}

    const RunArchive& archive() const { return m_archive; }

    /// Of a run that has ended as the word says; the later ones are newer.
    int add(const char* model, RunRecord::State state, const char* outcome = "",
            const QVector<RecordedMessage>& messages = {})
    {
        RunRecord record = begun(model);
        const RunArchive::Addition addition = m_archive.add(record, QString());
        writeMessages(addition.folder, messages);
        record.state = state;
        record.ended = record.started.addSecs(75);
        record.duration = 75000;
        record.outcome = *outcome == '\0' ? RunRecord::word(state) : text(outcome);
        record.totalPercentage = 100;
        if (!RecordFolder(addition.folder).writeEnd(record)) {
            qFatal("no record");
        }
        return addition.number;
    }

    /// Of a run that goes on in this program.
    RunArchive::Addition addRunning(const char* model)
    {
        return m_archive.add(begun(model), QString());
    }

    static void writeMessages(const QString& folder, const QVector<RecordedMessage>& messages)
    {
        QFile file(RecordFolder(folder).messagesFile());
        if (!file.open(QIODevice::Append)) {
            qFatal("no messages");
        }
        for (const RecordedMessage& message : messages) {
            file.write(message.toLine());
        }
    }

private:
    RunRecord begun(const char* model)
    {
        RunRecord record;
        record.face = text("window");
        record.component = text("runkest");
        record.model = m_desk.path(text("models/") + text(model));
        record.program = m_desk.path("home/bin/runkest");
        record.arguments = QStringList{text(model), text("--run-from-gui")};
        record.workingDirectory = m_desk.path("models");
        record.started = QDateTime::currentDateTimeUtc().addSecs(-100000 + 10 * ++m_count);
        if (!QFile::exists(record.model)) {
            writeFile(record.model, "valid");
        }
        return record;
    }

    const Desk& m_desk;
    RunArchive m_archive;
    int m_count = 0;
};
