// SPDX-License-Identifier: MIT
#include <TestRandom.h>

#include <ProcessMark.h>
#include <QueueFile.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <csignal>
#include <memory>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

// Queues of dead programs, which several programs find at the same time: each run is taken over
// once, also when one of these programs is killed.
class tst_queue_takeover : public QObject
{
    Q_OBJECT

private:
    static constexpr int runCount = 80;

    std::unique_ptr<QTemporaryDir> m_folder;

    static QString markOfDead(int number)
    {
        QStringList parts = ProcessMark::own().word().split(QLatin1Char('-'));
        parts.last() = QString::number(parts.last().toULongLong() + static_cast<quint64>(number));
        return parts.join(QLatin1Char('-'));
    }

    static QueuedRun runOf(int number)
    {
        QueuedRun run;
        run.component = QStringLiteral("runkest");
        run.model = QStringLiteral("/%1.nec").arg(number);
        return run;
    }

    // A file with one run.
    void writeRun(const QString& mark, int number) const
    {
        QFile file(m_folder->filePath(QStringLiteral("queue-%1.json").arg(mark)));
        const QJsonObject run{{QStringLiteral("component"), QStringLiteral("runkest")},
                              {QStringLiteral("model"), runOf(number).model}};
        const QJsonObject runs{{QStringLiteral("runs"), QJsonArray{run}}};
        const QByteArray content = QJsonDocument(runs).toJson();
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("no queue");
        }
    }

    // A file for each run, of a program each.
    QStringList leaveRuns() const
    {
        QStringList models;
        for (int number = 1; number <= runCount; ++number) {
            writeRun(markOfDead(number), number);
            models.append(runOf(number).model);
        }
        models.sort();
        return models;
    }

    void writeTaken() const
    {
        for (int number = 1; number <= runCount; ++number) {
            writeRun(QStringLiteral("left-%1-%2").arg(number).arg(ProcessMark::own().word()),
                     number);
        }
    }

    // A program that has taken runs over, and has not yet removed the files that it took them from.
    pid_t startProgramThatRemovesNothing() const
    {
        const pid_t program = fork();
        if (program == 0) {
            QVector<QueuedRun> runs;
            for (int number = 1; number <= runCount; ++number) {
                runs.append(runOf(number));
            }
            writeTaken();
            QueueFile(m_folder->path()).write(runs);
            writeTaken();
            QFile ready(m_folder->filePath(QStringLiteral("ready")));
            ready.open(QIODevice::WriteOnly);
            for (;;) {
                pause();
            }
        }
        return program;
    }

    // As a program does that starts.
    static void takeOver(QueueFile& file, QVector<QueuedRun>& runs)
    {
        runs += file.takeLeft().runs;
        if (!file.write(runs)) {
            qFatal("%s", qPrintable(file.reason()));
        }
    }

    // A program that takes over what it finds, and stays.
    pid_t startProgram() const
    {
        const pid_t program = fork();
        if (program == 0) {
            QueueFile file(m_folder->path());
            QVector<QueuedRun> runs;
            takeOver(file, runs);
            for (;;) {
                pause();
            }
        }
        return program;
    }

    static void kill(pid_t program)
    {
        QCOMPARE(::kill(program, SIGKILL), 0);
        QCOMPARE(waitpid(program, nullptr, 0), program); // until then it counts as alive
    }

    static QStringList modelsOf(const QVector<QueuedRun>& runs)
    {
        QStringList models;
        for (const QueuedRun& run : runs) {
            models.append(run.model);
        }
        models.sort();
        return models;
    }

    int fileCount() const { return QDir(m_folder->path()).entryList(QDir::Files).size(); }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void twoProgramsShareTheRuns()
    {
        const QStringList models = leaveRuns();
        const pid_t programs[] = {startProgram(), startProgram()};
        QTRY_VERIFY_WITH_TIMEOUT(fileCount() <= 2, 30000);
        for (const pid_t program : programs) {
            kill(program);
        }
        QCOMPARE(modelsOf(QueueFile(m_folder->path()).takeLeft().runs), models);
    }

    void programIsKilledWhileAnotherOneTakesOver()
    {
        constexpr int rounds = 5;
        constexpr int longest = 6000; // microseconds, about what taking over takes
        QRandomGenerator random = TestRandom::anew();
        for (int round = 0; round < rounds; ++round) {
            m_folder = std::make_unique<QTemporaryDir>();
            const QStringList models = leaveRuns();
            QueueFile file(m_folder->path());
            QVector<QueuedRun> taken;
            const pid_t program = startProgram();
            std::atomic<bool> isOver = false;
            std::thread other([&] {
                while (!isOver) {
                    takeOver(file, taken);
                }
            });
            usleep(random.bounded(longest));
            kill(program);
            isOver = true;
            other.join();
            takeOver(file, taken);
            QCOMPARE(modelsOf(taken), models);
            QCOMPARE(fileCount(), 1);
        }
    }

    // While another program looks at its files one after the other.
    void programIsKilledThatHasNotRemovedWhatItTook()
    {
        constexpr int rounds = 5;
        constexpr int longest = 20000; // microseconds
        QRandomGenerator random = TestRandom::anew();
        for (int round = 0; round < rounds; ++round) {
            m_folder = std::make_unique<QTemporaryDir>();
            const pid_t program = startProgramThatRemovesNothing();
            const QString ready = m_folder->filePath(QStringLiteral("ready"));
            QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(ready), 30000);
            QVERIFY(QFile::remove(ready));
            QueueFile file(m_folder->path());
            QVector<QueuedRun> taken;
            std::atomic<bool> isOver = false;
            std::thread other([&] {
                while (!isOver) {
                    taken += file.takeLeft().runs;
                }
            });
            usleep(random.bounded(longest));
            kill(program);
            isOver = true;
            other.join();
            taken += file.takeLeft().runs;
            QCOMPARE(taken.size(), runCount);
            QStringList models = modelsOf(taken);
            QCOMPARE(models.removeDuplicates(), 0);
        }
    }
};

QTEST_GUILESS_MAIN(tst_queue_takeover)

#include "tst_queue_takeover.moc"
