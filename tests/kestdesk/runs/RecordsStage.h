// SPDX-License-Identifier: MIT
#pragma once

#include <RecordFolder.h>
#include <RecordedMessage.h>
#include <RunArchive.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// An archive whose records a test makes by hand, and a folder of models and results.
class RecordsStage
{
public:
    RecordsStage() { QDir(m_folder.path()).mkpath(QStringLiteral("models")); }

    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString modelPath(const QString& name) const
    {
        return m_folder.filePath(QStringLiteral("models/")) + name;
    }
    RunArchive archive() const { return RunArchive(path(QStringLiteral("user/kest/runs"))); }

    void write(const QString& fileName, const QByteArray& content) const
    {
        QFile file(fileName);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write %s", qPrintable(fileName));
        }
    }

    /// A file of the models' folder as a record names it after a run.
    RunRecord::File result(const QString& name, const QByteArray& content) const
    {
        write(modelPath(name), content);
        const QByteArray sum = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
        return {modelPath(name), content.size(), QString::fromLatin1(sum.toHex()), {}};
    }

    /// A run that was valid, of the model dipole.nec.
    RunRecord valid() const
    {
        RunRecord record;
        record.face = QStringLiteral("terminal");
        record.component = QStringLiteral("runkest");
        record.model = modelPath(QStringLiteral("dipole.nec"));
        record.program = QStringLiteral("/suite/bin/runkest");
        record.workingDirectory = path(QStringLiteral("models"));
        record.host = QStringLiteral("here");
        record.started = QDateTime(QDate(2026, 3, 1), QTime(10, 20, 30), Qt::UTC);
        record.ended = record.started.addSecs(5);
        record.duration = 5000;
        record.state = RunRecord::State::Valid;
        record.outcome = QStringLiteral("valid");
        record.totalPercentage = 100;
        return record;
    }

    /// Adds the record, with its end unless it still runs, and with these messages.
    RunRecord add(const RunRecord& record, const QVector<RecordedMessage>& messages = {},
                  const QByteArray& model = "GW 1 9 0 0 -1 0 0 1 .001\nGE\nEN\n",
                  const QString& machinesFile = {}) const
    {
        write(record.model, model);
        const RunArchive::Addition addition = archive().add(record, machinesFile);
        if (addition.number == 0) {
            qFatal("no record: %s", qPrintable(addition.problem));
        }
        RecordFolder folder(addition.folder);
        QByteArray lines;
        for (const RecordedMessage& message : messages) {
            lines += message.toLine();
        }
        write(folder.messagesFile(), lines);
        if (record.hasEnded() && !folder.writeEnd(record)) {
            qFatal("no end: %s", qPrintable(folder.reason()));
        }
        return *archive().record(addition.number);
    }

private:
    QTemporaryDir m_folder;
};
