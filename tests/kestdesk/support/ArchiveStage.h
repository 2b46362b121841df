// SPDX-License-Identifier: MIT
#pragma once

#include <RecordFolder.h>
#include <RunArchive.h>

#include <ProcessMark.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

/// An archive in a folder of its own, and records to put into it.
class ArchiveStage
{
public:
    ArchiveStage() { writeModel("GW 1 5 0 0 0 0 0 1 0.001\nGE 0\nEN\n"); }

    QString folder() const { return m_folder.filePath(QStringLiteral("runs")); }
    RunArchive archive() const { return RunArchive(folder()); }
    QString model() const { return m_folder.filePath(QStringLiteral("m.nec")); }

    void writeModel(const QByteArray& content) const { write(model(), content); }

    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write %s", qPrintable(path));
        }
    }

    /// Of a run that begins now.
    RunRecord start() const
    {
        RunRecord record;
        record.component = QStringLiteral("runkest");
        record.model = model();
        record.started = QDateTime::currentDateTimeUtc();
        return record;
    }

    /// A record that is complete. Returns its number.
    int addEnded(const QDateTime& started = QDateTime::currentDateTimeUtc(),
                 RunRecord::State state = RunRecord::State::Valid) const
    {
        RunRecord record = start();
        record.started = started;
        const RunArchive::Addition addition = archive().add(record, QString());
        record.state = state;
        record.ended = started.addSecs(1);
        record.outcome = RunRecord::word(state);
        if (addition.number == 0 || !RecordFolder(addition.folder).writeEnd(record)) {
            qFatal("no record: %s", qPrintable(addition.problem));
        }
        return addition.number;
    }

    /// The mark of a process that has ended for certain.
    static QString markOfDead()
    {
        QStringList parts = ProcessMark::own().word().split(QLatin1Char('-'));
        parts.last() = QString::number(parts.last().toULongLong() + 1); // another start
        return parts.join(QLatin1Char('-'));
    }

    /// Makes the record look as if the program that wrote it had been killed.
    void killOwner(int number) const
    {
        RecordFolder folder(QDir(this->folder()).filePath(QString::number(number)));
        auto record = folder.read();
        record->owner = markOfDead();
        QVERIFY(folder.writeStart(*record));
    }

private:
    QTemporaryDir m_folder;
};
