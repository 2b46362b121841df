// SPDX-License-Identifier: MIT
#include "../support/ArchiveStage.h"

#include "FileSizeLimit.h"

#include <MessageReader.h>
#include <RecordWriter.h>
#include <RecordedMessage.h>

#include <QSignalSpy>

#include <memory>

namespace {

constexpr int longTime = 60000; // ms
constexpr RunArchive::Limits limits = {1000, 1000};

QVector<RecordedMessage> messagesOf(const QString& folder)
{
    QVector<RecordedMessage> result;
    MessageReader(RecordFolder(folder).messagesFile()).readAll([&result](const auto& message) {
        result.append(message);
    });
    return result;
}

RecordedMessage output(const QString& text)
{
    return {1, common_IProcessMessage::Output, text};
}

} // namespace

class tst_record_writer : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<ArchiveStage> m_stage;
    std::unique_ptr<RecordWriter> m_writer;

    QString folder() const { return m_stage->folder() + QStringLiteral("/1"); }

    RunRecord end() const
    {
        RunRecord record = m_stage->start();
        record.state = RunRecord::State::Valid;
        record.ended = record.started;
        return record;
    }

    void begin()
    {
        QSignalSpy created(m_writer.get(), &RecordWriter::created);
        m_writer->begin(m_stage->start(), QString());
        QTRY_COMPARE_WITH_TIMEOUT(created.size(), 1, longTime);
        QCOMPARE(created.at(0).at(0).toInt(), 1);
    }

    RunRecord finish()
    {
        QSignalSpy finished(m_writer.get(), &RecordWriter::finished);
        m_writer->finish(end(), limits);
        if (!QTest::qWaitFor([&finished] { return !finished.isEmpty(); }, longTime)) {
            qFatal("the record is not finished");
        }
        return *m_stage->archive().record(1);
    }

private Q_SLOTS:
    void init()
    {
        m_stage = std::make_unique<ArchiveStage>();
        m_writer = std::make_unique<RecordWriter>(m_stage->archive());
    }

    void messagesAreInTheFileBeforeTheEnd()
    {
        begin();
        m_writer->append(output(QStringLiteral("one")));
        m_writer->append(output(QStringLiteral("two")));
        QTRY_COMPARE_WITH_TIMEOUT(messagesOf(folder()).size(), 2, longTime);
        QCOMPARE(m_stage->archive().record(1)->state, RunRecord::State::Running);
        m_writer->append(output(QStringLiteral("three")));
        QTRY_COMPARE_WITH_TIMEOUT(messagesOf(folder()).size(), 3, longTime);
        QCOMPARE(messagesOf(folder()).constLast().text, QStringLiteral("three"));
    }

    void endHasWhatTheMessagesTell()
    {
        begin();
        for (int line = 1; line <= 25; ++line) {
            m_writer->append(output(QString::number(line)));
        }
        m_writer->append({5, common_IProcessMessage::Error, QStringLiteral("E")});
        m_writer->append({6, common_IProcessMessage::Warning, QStringLiteral("W")});
        m_writer->append({6, common_IProcessMessage::Warning, QStringLiteral("W")});
        m_writer->append({7, common_IProcessMessage::TotalPercentage, QStringLiteral("80")});
        const RunRecord record = finish();
        QCOMPARE(record.state, RunRecord::State::Valid);
        QCOMPARE(record.errors, 1);
        QCOMPARE(record.warnings, 2);
        QCOMPARE(record.notices, 0);
        QCOMPARE(record.totalPercentage, 80);
        QCOMPARE(record.lastLines.size(), 20);
        QCOMPARE(record.lastLines.constFirst(), QStringLiteral("6"));
        QCOMPARE(record.lastLines.constLast(), QStringLiteral("25"));
        QCOMPARE(record.omittedLines, 0);
        QCOMPARE(record.gap, QString());
        QCOMPARE(messagesOf(folder()).size(), 29);
    }

    void filesHaveChecksums()
    {
        const QString result = m_stage->folder() + QStringLiteral(".csv");
        ArchiveStage::write(result, "1,2\n");
        begin();
        RunRecord record = end();
        record.files = {{result, 4, QString(), QString()},
                        {QStringLiteral("/gone"), -1, QString(), QString()}};
        QSignalSpy finished(m_writer.get(), &RecordWriter::finished);
        m_writer->finish(record, limits);
        QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, longTime);
        const QVector<RunRecord::File> files = m_stage->archive().record(1)->files;
        QCOMPARE(files.size(), 2);
        QCOMPARE(
            files.at(0).checksum, // sha256sum
            QStringLiteral("52186c933993da4082b3cdc7c40bb4bf735b391ff54a2ef78c037dda6c38a680"));
        QCOMPARE(files.at(1).checksum, QString());
    }

    void floodIsCutButErrorsStay()
    {
        m_writer->setMostBytes(10000);
        begin();
        constexpr int lines = 2000;
        for (int line = 0; line < lines; ++line) {
            m_writer->append(output(QStringLiteral("%1").arg(line, 50)));
            QTest::qWait(line % 100 == 0 ? 20 : 0); // so that some are written in between
        }
        QTest::qWait(500);
        m_writer->append({5, common_IProcessMessage::Error, QStringLiteral("E")});
        const RunRecord record = finish();
        const QVector<RecordedMessage> messages = messagesOf(folder());
        QCOMPARE(messages.constLast().text, QStringLiteral("E"));
        QCOMPARE(messages.size() + record.omittedLines, lines + 1);
        QVERIFY(record.omittedLines > lines / 2);
        QVERIFY(QFileInfo(RecordFolder(folder()).messagesFile()).size() < 11000);
        QCOMPARE(record.errors, 1);
    }

    void evenErrorsHaveALimit()
    {
        m_writer->setMostBytes(5000);
        begin();
        for (int line = 0; line < 1000; ++line) {
            m_writer->append({5, common_IProcessMessage::Error, QString(100, QLatin1Char('E'))});
            if (line % 20 == 0) {
                QTest::qWait(10);
            }
        }
        const RunRecord record = finish();
        QVERIFY(QFileInfo(RecordFolder(folder()).messagesFile()).size() < 11000);
        QVERIFY(record.omittedLines > 0);
    }

    void fullDiskIsReportedOnceAndTheEndIsWritten()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        begin();
        QSignalSpy failed(m_writer.get(), &RecordWriter::failed);
        {
            const FileSizeLimit full(2000);
            for (int line = 0; line < 20; ++line) {
                m_writer->append(output(QString(500, QLatin1Char('x'))));
                QTest::qWait(line % 5 == 0 ? 300 : 0);
            }
            QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, longTime);
        }
        const QString reason = failed.at(0).at(0).toString();
        QVERIFY2(reason.contains(QStringLiteral("messages.jsonl")), qPrintable(reason));
        const RunRecord record = finish();
        QCOMPARE(failed.size(), 1);
        QCOMPARE(record.gap, reason);
        QCOMPARE(record.state, RunRecord::State::Valid);
    }

    void archiveThatCannotBeMadeIsReported()
    {
        ArchiveStage::write(m_stage->folder(), "a file in its place");
        QSignalSpy failed(m_writer.get(), &RecordWriter::failed);
        QSignalSpy finished(m_writer.get(), &RecordWriter::finished);
        m_writer->begin(m_stage->start(), QString());
        QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, longTime);
        QCOMPARE(failed.size(), 1);
        m_writer->append(output(QStringLiteral("into the void")));
        m_writer->finish(end(), limits);
        m_writer.reset();
        QCOMPARE(m_stage->archive().records().size(), 0);
    }

    void recordIsWholeWhenTheWriterIsGone()
    {
        begin();
        m_writer->append(output(QStringLiteral("one")));
        m_writer->finish(end(), limits);
        m_writer.reset();
        QCOMPARE(m_stage->archive().record(1)->state, RunRecord::State::Valid);
        QCOMPARE(messagesOf(folder()).size(), 1);
    }

    void withoutAnEndTheRecordStaysOpen()
    {
        begin();
        m_writer->append(output(QStringLiteral("one")));
        m_writer.reset();
        QCOMPARE(m_stage->archive().record(1)->state, RunRecord::State::Running);
        QCOMPARE(messagesOf(folder()).size(), 1);
    }

    void archiveIsPrunedAtTheEnd()
    {
        m_stage->addEnded(QDateTime::currentDateTimeUtc().addDays(-2000));
        QSignalSpy finished(m_writer.get(), &RecordWriter::finished);
        m_writer->begin(m_stage->start(), QString());
        m_writer->finish(end(), limits);
        QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, longTime);
        QCOMPARE(m_stage->archive().records().size(), 1);
        QVERIFY(m_stage->archive().record(2));
    }

    void growingFileIsReadInPieces()
    {
        const QString file = m_stage->model();
        const QByteArray first = output(QStringLiteral("first")).toLine();
        const QByteArray second = output(QStringLiteral("second")).toLine();
        QStringList texts;
        const auto take = [&texts](const RecordedMessage& message) { texts.append(message.text); };
        ArchiveStage::write(file, QByteArray());
        MessageReader reader(file);
        QVERIFY(!reader.read(take));
        ArchiveStage::write(file, first + second.left(10));
        QVERIFY(reader.read(take));
        QCOMPARE(texts, QStringList({QStringLiteral("first")}));
        QVERIFY(!reader.read(take));
        ArchiveStage::write(file, first + second + "garbage\n" + first);
        QVERIFY(reader.read(take));
        QCOMPARE(texts.size(), 3);
        QCOMPARE(texts.at(1), QStringLiteral("second"));
    }

    void piecesAreBounded()
    {
        QByteArray lines;
        for (int line = 0; line < 100; ++line) {
            lines += output(QString::number(line)).toLine();
        }
        ArchiveStage::write(m_stage->model(), lines);
        MessageReader reader(m_stage->model());
        int count = 0;
        const auto take = [&count](const RecordedMessage& /*message*/) { ++count; };
        QVERIFY(reader.read(take, lines.size() / 4));
        QVERIFY(count >= 25 && count <= 27);
        reader.readAll(take);
        QCOMPARE(count, 100);
    }
};

QTEST_GUILESS_MAIN(tst_record_writer)

#include "tst_record_writer.moc"
