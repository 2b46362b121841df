// SPDX-License-Identifier: MIT
#include <TestRandom.h>

#include <ProcessMark.h>
#include <QueueFile.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace {

constexpr int runCount = 80;
constexpr int longTime = 30000; // ms, on a machine with much to do

using Programs = std::vector<std::unique_ptr<QProcess>>;

QString markOfDead(int number)
{
    QStringList parts = ProcessMark::own().word().split(QLatin1Char('-'));
    parts.last() = QString::number(parts.last().toULongLong() + static_cast<quint64>(number));
    return parts.join(QLatin1Char('-'));
}

QueuedRun runOf(int number)
{
    QueuedRun run;
    run.component = QStringLiteral("runkest");
    run.model = QStringLiteral("/%1.nec").arg(number);
    return run;
}

// A file with one run.
void writeRun(const QString& folder, const QString& mark, int number)
{
    QFile file(folder + QStringLiteral("/queue-%1.json").arg(mark));
    const QJsonObject run{{QStringLiteral("component"), QStringLiteral("runkest")},
                          {QStringLiteral("model"), runOf(number).model}};
    const QJsonObject runs{{QStringLiteral("runs"), QJsonArray{run}}};
    const QByteArray content = QJsonDocument(runs).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("no queue");
    }
}

void writeTaken(const QString& folder)
{
    for (int number = 1; number <= runCount; ++number) {
        writeRun(folder, QStringLiteral("left-%1-%2").arg(number).arg(ProcessMark::own().word()),
                 number);
    }
}

// As a program does that starts.
void takeOver(QueueFile& file, QVector<QueuedRun>& runs)
{
    runs += file.takeLeft().runs;
    if (!file.write(runs)) {
        qFatal("%s", qPrintable(file.reason()));
    }
}

void say(const char* word)
{
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly) || output.write(word) < 0) {
        qFatal("no output");
    }
}

// A program that takes over what it finds, and stays until it is killed. It says when it begins and
// when it has ended.
void playProgram(const QString& folder)
{
    QueueFile file(folder);
    QVector<QueuedRun> runs;
    say("ready\n");
    takeOver(file, runs);
    say("done\n");
}

// A program that has taken runs over, and has not yet removed the files that it took them from.
void playProgramThatRemovesNothing(const QString& folder)
{
    QVector<QueuedRun> runs;
    for (int number = 1; number <= runCount; ++number) {
        runs.append(runOf(number));
    }
    writeTaken(folder);
    QueueFile(folder).write(runs);
    writeTaken(folder);
    say("ready\n");
}

} // namespace

// Queues of dead programs, which several programs find at the same time: each run is taken over
// once, also when one of these programs is killed.
class tst_queue_takeover : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    // A file for each run, of a program each.
    QStringList leaveRuns() const
    {
        QStringList models;
        for (int number = 1; number <= runCount; ++number) {
            writeRun(m_folder->path(), markOfDead(number), number);
            models.append(runOf(number).model);
        }
        models.sort();
        return models;
    }

    void start(QProcess& program, const char* part) const
    {
        program.start(QCoreApplication::applicationFilePath(),
                      {QString::fromUtf8(part), m_folder->path()});
        QVERIFY(program.waitForStarted(longTime));
    }

    static void waitFor(QProcess& program, const char* word)
    {
        do {
            while (!program.canReadLine()) {
                QVERIFY2(program.waitForReadyRead(longTime), word);
            }
        } while (program.readLine().trimmed() != word);
    }

    Programs startPrograms(int count) const
    {
        Programs programs;
        for (int number = 0; number < count; ++number) {
            programs.push_back(std::make_unique<QProcess>());
            start(*programs.back(), "program");
        }
        return programs;
    }

    static void kill(QProcess& program)
    {
        program.kill();
        QVERIFY(program.waitForFinished(longTime)); // until then it counts as alive
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

    void programsShareTheRuns_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("two") << 2;
        QTest::newRow("four") << 4;
    }

    void programsShareTheRuns()
    {
        QFETCH(int, count);
        const QStringList models = leaveRuns();
        const Programs programs = startPrograms(count);
        for (const auto& program : programs) {
            waitFor(*program, "done");
        }
        QVERIFY2(fileCount() <= count, qPrintable(QString::number(fileCount())));
        for (const auto& program : programs) {
            kill(*program);
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
            QProcess program;
            start(program, "program");
            waitFor(program, "ready");
            std::atomic<bool> isOver = false;
            std::thread other([&] {
                while (!isOver) {
                    takeOver(file, taken);
                }
            });
            std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(longest)));
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
            QProcess program;
            start(program, "program that removes nothing");
            waitFor(program, "ready");
            QueueFile file(m_folder->path());
            QVector<QueuedRun> taken;
            std::atomic<bool> isOver = false;
            std::thread other([&] {
                while (!isOver) {
                    taken += file.takeLeft().runs;
                }
            });
            std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(longest)));
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

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString part = arguments.value(1);
    if (part == QLatin1String("program")) {
        playProgram(arguments.value(2));
    } else if (part == QLatin1String("program that removes nothing")) {
        playProgramThatRemovesNothing(arguments.value(2));
    } else {
        tst_queue_takeover test;
        return QTest::qExec(&test, argc, argv);
    }
    for (;;) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
    }
}

#include "tst_queue_takeover.moc"
