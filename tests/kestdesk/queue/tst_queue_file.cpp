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

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void runsComeBackAsTheyWere()
    {
        QueueFile file(m_folder->path());
        QueuedRun held = runOf("/models/\u00e4 b.nec");
        held.isHeld = true;
        QVERIFY(file.write({runOf("/models/one.nec"), held}));
        leave();
        const QVector<QueuedRun> left = file.takeLeft();
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
        QVERIFY(file.takeLeft().isEmpty());
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
            threads.emplace_back([&models, &file] { models = modelsOf(file.takeLeft()); });
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
        const QVector<QueuedRun> left = file.takeLeft();
        QCOMPARE(files().size(), 1);
        QVERIFY(file.write(left));
        QCOMPARE(files().size(), 1);
        leave();
        QCOMPARE(modelsOf(file.takeLeft()), QStringList(QStringLiteral("/m.nec")));
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
        QCOMPARE(modelsOf(file.takeLeft()), QStringList(QStringLiteral("/m.nec")));
    }

    void rowsThatMakeNoSenseCountForNothing()
    {
        write(QStringLiteral("queue-%1.json").arg(markOfDead()),
              R"({"runs":[7,{"component":"format-disk","model":"/a"},)"
              R"({"component":"runkest","model":"relative.nec"},)"
              R"({"component":"runkest","model":"/good.nec","runOptions":["parallel","x"]}]})");
        const QVector<QueuedRun> left = QueueFile(m_folder->path()).takeLeft();
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
        QVERIFY(QueueFile(m_folder->path()).takeLeft().isEmpty());
        QCOMPARE(files().size(), others.size());
    }

    void damagedFileIsNoRun()
    {
        write(QStringLiteral("queue-%1.json").arg(markOfDead()), "[{\"runs");
        QVERIFY(QueueFile(m_folder->path()).takeLeft().isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_queue_file)

#include "tst_queue_file.moc"
