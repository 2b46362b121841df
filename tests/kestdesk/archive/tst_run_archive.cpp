// SPDX-License-Identifier: MIT
#include "../support/ArchiveStage.h"

#include "SpecialFile.h"

#include <RecordedMessage.h>

#include <QCryptographicHash>
#include <QSet>

#include <thread>
#include <vector>

namespace {

QVector<int> numbersOf(const RunArchive& archive)
{
    QVector<int> result;
    const QVector<RunRecord> records = archive.records();
    for (const RunRecord& record : records) {
        result.append(record.number);
    }
    return result;
}

QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

} // namespace

class tst_run_archive : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<ArchiveStage> m_stage;

    QString folderOf(int number) const
    {
        return QDir(m_stage->folder()).filePath(QString::number(number));
    }

    void addMessages(int number, const QVector<RecordedMessage>& messages) const
    {
        QByteArray lines;
        for (const RecordedMessage& message : messages) {
            lines += message.toLine();
        }
        ArchiveStage::write(RecordFolder(folderOf(number)).messagesFile(), lines);
    }

private Q_SLOTS:
    void init() { m_stage = std::make_unique<ArchiveStage>(); }

    void nothingIsThereBeforeTheFirstRun()
    {
        QVERIFY(m_stage->archive().records().isEmpty());
        QVERIFY(!m_stage->archive().record(1));
        QCOMPARE(m_stage->archive().size(), 0);
        QCOMPARE(m_stage->archive().prune({1, 1}), 0);
        QVERIFY(!QFileInfo::exists(m_stage->folder()));
    }

    void recordsAreNumberedAndTheNewestIsFirst()
    {
        for (int number = 1; number <= 11; ++number) {
            QCOMPARE(m_stage->addEnded(), number);
        }
        QCOMPARE(numbersOf(m_stage->archive()), QVector<int>({11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1}));
        QVERIFY(m_stage->archive().remove(4));
        QCOMPARE(m_stage->addEnded(), 12);
    }

    void recordSaysWhatTheModelIs()
    {
        const QByteArray deck = "CM a wire\nCE\nGW 7 9 0 0 0 0 0 1 0.001\nGE 0\nEX 0 7 5 0 1 0\n"
                                "FR 0 4 0 0 100 10\nEN\n";
        m_stage->writeModel(deck);
        const RunArchive::Addition addition = m_stage->archive().add(m_stage->start(), QString());
        const auto record = m_stage->archive().record(addition.number);
        QVERIFY(record);
        QCOMPARE(record->segments, 9);
        QCOMPARE(record->frequencies, 4);
        QFile copy(record->modelCopyPath());
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), deck);
        const QByteArray hash = QCryptographicHash::hash(deck, QCryptographicHash::Sha256).toHex();
        QCOMPARE(record->modelChecksum, QString::fromLatin1(hash));
        QCOMPARE(record->state, RunRecord::State::Running);
    }

    void modelThatCannotBeReadIsLeftOut_data()
    {
        QTest::addColumn<bool>("isPipe");
        QTest::newRow("missing") << false;
        QTest::newRow("pipe") << true;
    }

    void modelThatCannotBeReadIsLeftOut()
    {
        QFETCH(bool, isPipe);
        QVERIFY(QFile::remove(m_stage->model()));
        if (isPipe) {
            SPECIAL_FILE_OR_SKIP(S_IFIFO, m_stage->model());
        }
        const RunArchive::Addition addition = m_stage->archive().add(m_stage->start(), QString());
        QCOMPARE(addition.number, 1);
        QCOMPARE(m_stage->archive().record(1)->modelCopy, QString());
    }

    void machinesFileIsCopied()
    {
        const QString machines = m_stage->folder() + QStringLiteral("-machines");
        ArchiveStage::write(machines, "node1:4\n");
        m_stage->archive().add(m_stage->start(), machines);
        const auto record = m_stage->archive().record(1);
        QFile copy(QDir(record->folder).filePath(record->machinesCopy));
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), QByteArray("node1:4\n"));
    }

    void whatIsNoRecordIsLeftAlone()
    {
        m_stage->addEnded();
        const QDir folder(m_stage->folder());
        const QStringList others{QStringLiteral("007"), QStringLiteral("-3"), QStringLiteral("0"),
                                 QStringLiteral("notes"), QStringLiteral("5x")};
        for (const QString& name : others) {
            QVERIFY(folder.mkdir(name));
        }
        QVERIFY(folder.mkdir(QStringLiteral("2"))); // an empty one
        QCOMPARE(numbersOf(m_stage->archive()), QVector<int>({1}));
        m_stage->archive().closeInterrupted();
        m_stage->archive().prune({1, 1});
        for (const QString& name : others) {
            QVERIFY(folder.exists(name));
        }
        QCOMPARE(m_stage->addEnded(), 3);
    }

    void programsThatAddAtOnceGetNumbersOfTheirOwn()
    {
        constexpr int programs = 8;
        constexpr int each = 20;
        std::vector<std::thread> threads;
        threads.reserve(programs);
        for (int program = 0; program < programs; ++program) {
            threads.emplace_back([this] {
                for (int run = 0; run < each; ++run) {
                    m_stage->addEnded();
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        const QVector<int> numbers = numbersOf(m_stage->archive());
        QCOMPARE(numbers.size(), programs * each);
        QCOMPARE(QSet<int>(numbers.begin(), numbers.end()).size(), programs * each);
        QCOMPARE(entries(m_stage->folder()).size(), programs * each);
    }

    void halfARecordOfADeadProgramIsRemoved()
    {
        m_stage->addEnded();
        const QDir folder(m_stage->folder());
        const QStringList left{QStringLiteral(".new-%1-aBcDeF").arg(ArchiveStage::markOfDead()),
                               QStringLiteral(".removed-%1-4").arg(ArchiveStage::markOfDead())};
        const QStringList others{QStringLiteral(".new-%1-aBcDeF").arg(ProcessMark::own().word()),
                                 QStringLiteral(".new-something")};
        const QStringList names = left + others;
        for (const QString& name : names) {
            QVERIFY(folder.mkpath(name + QStringLiteral("/inside")));
        }
        m_stage->archive().prune({1, 1});
        for (const QString& name : left) {
            QVERIFY2(!folder.exists(name), qPrintable(name));
        }
        for (const QString& name : others) {
            QVERIFY2(folder.exists(name), qPrintable(name));
        }
    }

    void folderThatCannotBeMadeIsAProblem()
    {
        ArchiveStage::write(m_stage->folder(), "a file in its place");
        const RunArchive::Addition addition = m_stage->archive().add(m_stage->start(), QString());
        QCOMPARE(addition.number, 0);
        QVERIFY2(addition.problem.contains(m_stage->folder()), qPrintable(addition.problem));
    }

    void runningRunIsNotRemoved()
    {
        m_stage->archive().add(m_stage->start(), QString());
        QVERIFY(!m_stage->archive().remove(1));
        QCOMPARE(m_stage->archive().prune({0, 0}), 0);
        QVERIFY(m_stage->archive().record(1));
        QVERIFY(!m_stage->archive().remove(2));
    }

    void oldRecordsAreDeletedFirst()
    {
        const QDateTime now = QDateTime::currentDateTimeUtc();
        for (const int days : {9, 5, 3, 1}) {
            m_stage->addEnded(now.addDays(-days));
        }
        QCOMPARE(m_stage->archive().prune({4, 1000}), 2);
        QCOMPARE(numbersOf(m_stage->archive()), QVector<int>({4, 3}));
        QCOMPARE(m_stage->archive().prune({0, 1000}), 1);
        QCOMPARE(numbersOf(m_stage->archive()), QVector<int>({4}));
    }

    void theOldestGoWhenTheArchiveIsTooLarge()
    {
        constexpr int count = 5;
        for (int number = 1; number <= count; ++number) {
            m_stage->addEnded();
            ArchiveStage::write(RecordFolder(folderOf(number)).messagesFile(),
                                QByteArray(700 * 1024, '\n'));
        }
        QVERIFY(m_stage->archive().size() > qint64(count) * 700 * 1024);
        QCOMPARE(m_stage->archive().prune({1000, 2}), 3);
        QCOMPARE(numbersOf(m_stage->archive()), QVector<int>({5, 4}));
        QCOMPARE(m_stage->archive().prune({1000, 0}), 1);
        QCOMPARE(numbersOf(m_stage->archive()), QVector<int>({5}));
    }

    void recordOfAKilledProgramIsInterrupted()
    {
        m_stage->archive().add(m_stage->start(), QString());
        addMessages(1, {{100, common_IProcessMessage::Output, QStringLiteral("one")},
                        {200, common_IProcessMessage::Warning, QStringLiteral("W")},
                        {300, common_IProcessMessage::TotalPercentage, QStringLiteral("40")},
                        {400, common_IProcessMessage::File, QStringLiteral("m.nec")},
                        {500, common_IProcessMessage::File, QStringLiteral("gone.out")},
                        {600, common_IProcessMessage::File, QStringLiteral("m.nec")},
                        {700, common_IProcessMessage::Output, QStringLiteral("two")}});
        m_stage->archive().closeInterrupted();
        QCOMPARE(m_stage->archive().record(1)->state, RunRecord::State::Running);
        m_stage->killOwner(1);
        QCOMPARE(m_stage->archive().record(1)->state, RunRecord::State::Interrupted);
        m_stage->archive().closeInterrupted();
        const auto record = m_stage->archive().record(1);
        QCOMPARE(record->state, RunRecord::State::Interrupted);
        QCOMPARE(record->outcome, QStringLiteral("interrupted"));
        QCOMPARE(record->duration, 700);
        QCOMPARE(record->warnings, 1);
        QCOMPARE(record->totalPercentage, 40);
        QCOMPARE(record->lastLines, QStringList({QStringLiteral("one"), QStringLiteral("two")}));
        QCOMPARE(record->files.size(), 2);
        QCOMPARE(record->files.at(0).path, m_stage->model());
        QVERIFY(record->files.at(0).size > 0);
        QCOMPARE(record->files.at(1).size, -1);
    }

    void anEndIsNotReplaced()
    {
        m_stage->addEnded(QDateTime::currentDateTimeUtc(), RunRecord::State::Fault);
        m_stage->killOwner(1);
        m_stage->archive().closeInterrupted();
        QCOMPARE(m_stage->archive().record(1)->state, RunRecord::State::Fault);
    }

    void damagedRecordHidesNoOther()
    {
        m_stage->addEnded();
        m_stage->addEnded();
        m_stage->addEnded();
        ArchiveStage::write(folderOf(2) + QStringLiteral("/run.json"),
                            QByteArray(R"({"format": 1})").chopped(1));
        ArchiveStage::write(folderOf(3) + QStringLiteral("/end.json"), "");
        QCOMPARE(numbersOf(m_stage->archive()), QVector<int>({3, 1}));
    }

    void damagedRecordTellsWhatIsLeft()
    {
        m_stage->addEnded();
        m_stage->addEnded();
        ArchiveStage::write(folderOf(1) + QStringLiteral("/run.json"), "");
        QVERIFY(QFile::remove(folderOf(2) + QStringLiteral("/run.json")));
        QVERIFY(QFile::remove(folderOf(2) + QStringLiteral("/end.json")));
        QVERIFY(!m_stage->archive().record(1));
        const QVector<RunRecord> all = m_stage->archive().allRecords();
        QCOMPARE(all.size(), 2);
        for (const RunRecord& record : all) {
            QCOMPARE(record.state, RunRecord::State::Damaged);
            QCOMPARE(record.folder, folderOf(record.number));
            QVERIFY(record.started.isValid() && record.hasEnded());
        }
        QCOMPARE(all.last().number, 1);
        QVERIFY(!m_stage->archive().recordOrDamaged(3));
    }
};

QTEST_GUILESS_MAIN(tst_run_archive)

#include "tst_run_archive.moc"
