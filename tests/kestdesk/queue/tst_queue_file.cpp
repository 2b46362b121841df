// SPDX-License-Identifier: MIT
#include <ProcessMark.h>
#include <QueueFile.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <thread>
#include <vector>

namespace {

QString markOfDead(int number = 1)
{
    QStringList parts = ProcessMark::own().word().split(QLatin1Char('-'));
    parts.last() = QString::number(parts.last().toULongLong() + static_cast<quint64>(number));
    return parts.join(QLatin1Char('-'));
}

QueuedRun runOf(const char* model)
{
    QueuedRun run;
    run.component = QStringLiteral("optkest");
    run.model = QString::fromUtf8(model);
    run.options = common_RunWrapper::FarmOut;
    return run;
}

QStringList modelsOf(const QVector<QueuedRun>& runs)
{
    QStringList models;
    for (const QueuedRun& run : runs) {
        models.append(run.model);
    }
    return models;
}

} // namespace

class tst_queue_file : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files); }

    void write(const QString& name, const QByteArray& content) const
    {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    // As if this process had written its file and been killed.
    void leave(int number = 1) const
    {
        const QString own = QStringLiteral("queue-%1.json").arg(ProcessMark::own().word());
        const QString left = QStringLiteral("queue-%1.json").arg(markOfDead(number));
        QVERIFY(QFile::rename(m_folder->filePath(own), m_folder->filePath(left)));
    }

    // As if the process of all files had been killed, which their names and contents show.
    void killOwner() const
    {
        const QByteArray own = ProcessMark::own().word().toUtf8();
        const QByteArray dead = markOfDead().toUtf8();
        const QStringList names = files();
        for (const QString& name : names) {
            QFile file(m_folder->filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray content = file.readAll().replace(own, dead);
            QVERIFY(file.remove());
            write(QString::fromUtf8(name.toUtf8().replace(own, dead)), content);
        }
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void runsComeBackAsTheyWere()
    {
        QueueFile file(m_folder->path());
        QueuedRun held = runOf("/models/\u00e4 b.nec");
        held.isHeld = true;
        QVERIFY(file.write({runOf("/models/one.nec"), held}));
        leave();
        const QVector<QueuedRun> left = file.takeLeft().runs;
        QCOMPARE(modelsOf(left), modelsOf({runOf("/models/one.nec"), held}));
        QCOMPARE(left.at(0).component, QStringLiteral("optkest"));
        QCOMPARE(left.at(0).options, common_RunWrapper::RunOptions(common_RunWrapper::FarmOut));
        QVERIFY(!left.at(0).isHeld);
        QVERIFY(left.at(1).isHeld);
    }

    void emptyQueueHasNoFile()
    {
        QueueFile file(m_folder->path());
        QVERIFY(file.write({runOf("/m.nec")}));
        QCOMPARE(files().size(), 1);
        QVERIFY(file.write({}));
        QCOMPARE(files(), QStringList());
    }

    void fileOfAProcessThatLivesIsItsOwn()
    {
        QueueFile file(m_folder->path());
        QVERIFY(file.write({runOf("/m.nec")}));
        QVERIFY(file.takeLeft().runs.isEmpty());
        QCOMPARE(files().size(), 1);
    }

    void onlyOneProgramTakesOver()
    {
        QueueFile file(m_folder->path());
        for (int number = 1; number <= 20; ++number) {
            QVERIFY(file.write({runOf(qPrintable(QStringLiteral("/%1.nec").arg(number)))}));
            leave(number);
        }
        std::vector<std::thread> threads;
        QVector<QStringList> taken(4);
        for (QStringList& models : taken) {
            threads.emplace_back([&models, &file] { models = modelsOf(file.takeLeft().runs); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        QStringList all;
        for (const QStringList& models : taken) {
            all += models;
        }
        QCOMPARE(all.size(), 20);
        QCOMPARE(all.removeDuplicates(), 0);
    }

    void takenRunsStayOnTheDiskUntilTheyAreWritten()
    {
        QueueFile file(m_folder->path());
        QVERIFY(file.write({runOf("/m.nec")}));
        leave();
        const QVector<QueuedRun> left = file.takeLeft().runs;
        QCOMPARE(files().size(), 1);
        QVERIFY(file.write(left));
        QCOMPARE(files().size(), 1);
        leave();
        QCOMPARE(modelsOf(file.takeLeft().runs), QStringList(QStringLiteral("/m.nec")));
    }

    // This process was killed, too, before it had written what it had taken.
    void whatWasTakenAndNotWrittenIsTakenAgain()
    {
        QueueFile file(m_folder->path());
        QVERIFY(file.write({runOf("/m.nec")}));
        leave();
        file.takeLeft();
        const QString taken = files().constFirst();
        QString left = taken;
        left.replace(ProcessMark::own().word(), markOfDead(2));
        QVERIFY(QFile::rename(m_folder->filePath(taken), m_folder->filePath(left)));
        QCOMPARE(modelsOf(file.takeLeft().runs), QStringList(QStringLiteral("/m.nec")));
    }

    // As above, but after it had written it, and before it had removed the old file.
    void whatWasTakenAndWrittenIsTakenOnce()
    {
        QueueFile file(m_folder->path());
        QVERIFY(file.write({runOf("/m.nec")}));
        leave();
        const QVector<QueuedRun> taken = file.takeLeft().runs;
        const QString old = files().constFirst();
        QVERIFY(QFile::copy(m_folder->filePath(old), m_folder->filePath(QStringLiteral("copy"))));
        QVERIFY(file.write(taken));
        QVERIFY(QFile::rename(m_folder->filePath(QStringLiteral("copy")), m_folder->filePath(old)));
        killOwner();
        QCOMPARE(files().size(), 2);
        QCOMPARE(modelsOf(file.takeLeft().runs), QStringList(QStringLiteral("/m.nec")));
        QCOMPARE(files().size(), 1);
    }

    void rowsThatMakeNoSenseCountForNothing()
    {
        write(QStringLiteral("queue-%1.json").arg(markOfDead()),
              R"({"runs":[7,{"component":"format-disk","model":"/a"},)"
              R"({"component":"runkest","model":"relative.nec"},)"
              R"({"component":"runkest","model":"/good.nec","runOptions":["parallel","x"]}]})");
        const QVector<QueuedRun> left = QueueFile(m_folder->path()).takeLeft().runs;
        QCOMPARE(modelsOf(left), QStringList(QStringLiteral("/good.nec")));
        QCOMPARE(left.at(0).options, common_RunWrapper::RunOptions(common_RunWrapper::Parallel));
    }

    void otherFilesAreLeftAlone()
    {
        const QStringList others{QStringLiteral("queue-notes.json"), QStringLiteral("queue.json"),
                                 QStringLiteral("kest.ini")};
        for (const QString& name : others) {
            write(name, "{}");
        }
        QVERIFY(QueueFile(m_folder->path()).takeLeft().runs.isEmpty());
        QCOMPARE(files().size(), others.size());
    }

    void damagedFileIsKept_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("models");
        const QStringList good(QStringLiteral("/good.nec"));
        QTest::newRow("empty") << QByteArray("") << QStringList();
        QTest::newRow("cut") << QByteArray("[{\"runs") << QStringList();
        QTest::newRow("no runs") << QByteArray("{\"other\":[]}") << QStringList();
        QTest::newRow("one row")
            << QByteArray(R"({"runs":[{"component":"runkest","model":"/good.nec"},7]})") << good;
    }

    void damagedFileIsKept()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, models);
        const QString name = QStringLiteral("queue-%1.json").arg(markOfDead());
        write(name, content);
        QueueFile file(m_folder->path());
        const QueueFile::Left left = file.takeLeft();
        QCOMPARE(modelsOf(left.runs), models);
        QCOMPARE(left.damaged, QStringList(m_folder->filePath(name) + QStringLiteral(".damaged")));
        QVERIFY(file.write({}));
        QCOMPARE(files(), QStringList(name + QStringLiteral(".damaged")));
        QFile kept(left.damaged.constFirst());
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), content);
        QVERIFY(file.takeLeft().damaged.isEmpty());
    }

    void wholeFileIsNotDamaged()
    {
        QueueFile file(m_folder->path());
        QVERIFY(file.write({runOf("/m.nec")}));
        leave();
        QCOMPARE(file.takeLeft().damaged, QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_queue_file)

#include "tst_queue_file.moc"
