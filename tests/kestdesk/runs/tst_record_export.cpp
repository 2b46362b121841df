// SPDX-License-Identifier: MIT
#include "RecordsStage.h"

#include <RecordExport.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QtTest>

#include <zip.h>

namespace {

using Entries = QMap<QString, QByteArray>;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// The library checks the checksum of each entry when it is read to its end.
Entries entriesOf(const QString& path)
{
    Entries entries;
    zip_t* const archive =
        zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY | ZIP_CHECKCONS, nullptr);
    if (archive == nullptr) {
        return entries;
    }
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
        zip_stat_t stat;
        zip_file_t* const file = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
        if (file != nullptr &&
            zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &stat) == 0) {
            QByteArray content(static_cast<int>(stat.size) + 1, '\0');
            const zip_int64_t size =
                zip_fread(file, content.data(), static_cast<zip_uint64_t>(content.size()));
            content.resize(static_cast<int>(size));
            entries.insert(QString::fromUtf8(stat.name), content);
        }
        zip_fclose(file);
    }
    zip_close(archive);
    return entries;
}

} // namespace

// One file that holds a record, for somebody else.
class tst_record_export : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RecordsStage> m_stage;
    QString m_zip;

    Entries exported(const RunRecord& record, qint64 limit = RecordExport::usualResultBytes) const
    {
        QString problem;
        const bool isWritten = RecordExport::exportRecord(record, m_zip, problem, limit);
        return isWritten && problem.isEmpty() ? entriesOf(m_zip) : Entries();
    }

private Q_SLOTS:
    void init()
    {
        m_stage = std::make_unique<RecordsStage>();
        m_zip = m_stage->path(text("run 1.zip"));
    }

    void exportHoldsAllThatTheRecordHas()
    {
        const QString machines = m_stage->path(text("machines.kest"));
        m_stage->write(machines, "here:2\n");
        RunRecord run = m_stage->valid();
        run.files = {m_stage->result(text("dipole.out"), "\0binary\n"),
                     m_stage->result(text("dipöle\u202e.csv"), "table")};
        const RunRecord record =
            m_stage->add(run, {{5, RecordedMessage::Type::Warning, text("hot")}}, "GE\n", machines);
        const Entries entries = exported(record);
        QCOMPARE(entries.keys(),
                 QStringList({text("README.txt"), text("machines.kest"), text("messages.jsonl"),
                              text("model.nec"), text("record.json"), text("results/dipole.out"),
                              text("results/dipöle\u202e.csv"), text("summary.txt")}));
        QCOMPARE(entries.value(text("model.nec")), QByteArray("GE\n"));
        QCOMPARE(entries.value(text("machines.kest")), QByteArray("here:2\n"));
        QCOMPARE(entries.value(text("results/dipöle\u202e.csv")), QByteArray("table"));
        QCOMPARE(QJsonDocument::fromJson(entries.value(text("record.json"))).object(),
                 record.toJson());
        QVERIFY(entries.value(text("messages.jsonl")).contains("hot"));
        QVERIFY(entries.value(text("summary.txt")).startsWith("Run 1: dipole.nec, valid\n"));
        QVERIFY(entries.value(text("summary.txt")).contains("\nwarning: hot\n"));
        QVERIFY(!entries.value(text("README.txt")).contains("Left out"));
        QVERIFY(entries.value(text("README.txt")).contains("model.nec: the model as it was\n"));
        QVERIFY(!entries.value(text("README.txt")).contains("\u202e"));
    }

    void largeFilesAreLeftOutAndNamed()
    {
        RunRecord run = m_stage->valid();
        run.files = {m_stage->result(text("a"), "four"), m_stage->result(text("b"), "sixsix"),
                     m_stage->result(text("c"), "four")};
        const Entries entries = exported(m_stage->add(run), 8);
        QVERIFY(entries.contains(text("results/a")) && entries.contains(text("results/c")));
        QVERIFY(!entries.contains(text("results/b")));
        QVERIFY2(entries.value(text("README.txt")).contains("\nb: it is too large (6 B)\n"),
                 entries.value(text("README.txt")).constData());
    }

    void filesThatChangedSinceAreLeftOutUnlessTheRecordHasACopy()
    {
        RunRecord run = m_stage->valid();
        run.files = {m_stage->result(text("a"), "old"), m_stage->result(text("b"), "old"),
                     m_stage->result(text("gone"), "old")};
        run.files[1].copy = text("table-1.csv");
        const RunRecord record = m_stage->add(run);
        m_stage->write(QDir(record.folder).filePath(text("table-1.csv")), "old");
        m_stage->write(m_stage->modelPath(text("a")), "new");
        m_stage->write(m_stage->modelPath(text("b")), "new");
        QVERIFY(QFile::remove(m_stage->modelPath(text("gone"))));
        const Entries entries = exported(record);
        QVERIFY(!entries.contains(text("results/a")));
        QCOMPARE(entries.value(text("results/b")), QByteArray("old"));
        const QByteArray readme = entries.value(text("README.txt"));
        QVERIFY2(readme.contains("\na: it has been changed since the run\n"), readme.constData());
        QVERIFY2(readme.contains("\ngone: "), readme.constData());
    }

    void filesOfTheSameNameAreKeptApart()
    {
        QVERIFY(QDir().mkpath(m_stage->modelPath(text("sub"))));
        RunRecord run = m_stage->valid();
        run.files = {m_stage->result(text("a"), "one"), m_stage->result(text("sub/a"), "two")};
        const Entries entries = exported(m_stage->add(run));
        QCOMPARE(entries.value(text("results/a")), QByteArray("one"));
        QCOMPARE(entries.value(text("results/2/a")), QByteArray("two"));
    }

    void partsThatAreMissingAreNamed()
    {
        const RunRecord record = m_stage->add(m_stage->valid());
        QVERIFY(QFile::remove(record.modelCopyPath()));
        QVERIFY(QFile::remove(RecordFolder(record.folder).messagesFile()));
        const Entries entries = exported(record);
        const QByteArray readme = entries.value(text("README.txt"));
        QVERIFY2(readme.contains("model.nec: ") && readme.contains("messages.jsonl: "),
                 readme.constData());
        QVERIFY(readme.indexOf("model.nec: ") > readme.indexOf("Left out"));
        QVERIFY(
            entries.value(text("summary.txt")).contains("the messages of this run are missing"));
    }

    void failureLeavesTheOldFileAndNothingElse()
    {
        const RunRecord record = m_stage->add(m_stage->valid());
        const QString folder = m_stage->path(text("no folder"));
        QString problem;
        QVERIFY(!RecordExport::exportRecord(record, folder + text("/a.zip"), problem));
        QVERIFY2(problem.contains(text("a.zip cannot be written")), qPrintable(problem));
        QVERIFY(!QFileInfo::exists(folder));

        problem.clear();
        QVERIFY(!RecordExport::exportRecord(record, m_stage->path(text("models")), problem));
        QVERIFY2(problem.contains(text("folder")), qPrintable(problem));
    }

    void olderExportIsReplaced()
    {
        m_stage->write(m_zip, "old");
        QVERIFY(!exported(m_stage->add(m_stage->valid())).isEmpty());
        QCOMPARE(QDir(QFileInfo(m_zip).path()).entryList({text("run*")}),
                 QStringList(text("run 1.zip")));
    }
};

QTEST_GUILESS_MAIN(tst_record_export)
#include "tst_record_export.moc"
