// SPDX-License-Identifier: MIT
#include "UnixSettings.h"

#include <FakeServices.h>
#include <MarkedFolders.h>
#include <SettingsObjects.h>
#include <SettingsProcess.h>
#include <Stopwatch.h>
#include <TestRandom.h>
#include <UnixLines.h>

#include <common_ComponentsLaunchOptions.h>

#include <QElapsedTimer>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <vector>

namespace {

constexpr int writers = 8;
constexpr qint64 atOnce = 1000;     // milliseconds
constexpr qint64 soon = 5 * atOnce; // on a loaded machine

bool areFullTests()
{
    return qEnvironmentVariableIsSet("KEST_FULL_TESTS");
}

using Processes = std::vector<std::unique_ptr<SettingsProcess>>;

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? unixLines(file.readAll()) : QByteArray("no such file");
}

QString keyOf(int writer)
{
    return QStringLiteral("writer%1-").arg(writer);
}

/// The milliseconds in "slowest MILLISECONDS"; negative when the process says something else.
int slowestOf(SettingsProcess& process)
{
    const QString said = process.said();
    const QString what = QStringLiteral("slowest ");
    bool isNumber = false;
    const int milliseconds = said.section(QLatin1Char(' '), 1).toInt(&isNumber);
    return said.startsWith(what) && isNumber && process.hasEndedWell() ? milliseconds : -1;
}

} // namespace

/// Several processes on one settings file.
class tst_settings_processes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Processes that are killed leave their temporary files.
    void initTestCase()
    {
        for (const char* name : {"TMPDIR", "TMP"}) { // of Unix, and of Windows
            QVERIFY(qputenv(name, QFile::encodeName(m_temporary.path())));
        }
        QCOMPARE(QDir::tempPath(), m_temporary.path());
    }

    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        m_file = m_directory->filePath(QStringLiteral("kest.ini"));
    }

    void writersUnderTheLockLoseNothing()
    {
        const int rounds = areFullTests() ? 200 : 25;
        Processes processes;
        for (int writer = 0; writer < writers; ++writer) {
            processes.push_back(std::make_unique<SettingsProcess>(QStringList{
                QStringLiteral("change"), m_file, keyOf(writer), QString::number(rounds)}));
        }
        int slowest = 0;
        for (const auto& process : processes) {
            const int milliseconds = slowestOf(*process);
            QVERIFY(milliseconds >= 0);
            slowest = qMax(slowest, milliseconds);
            QCOMPARE(process->readAllStandardError(), QByteArray());
        }
        qInfo("slowest change under the lock: %d ms", slowest);
        QByteArray expected = "[counts]\n";
        for (int writer = 0; writer < writers; ++writer) {
            expected += keyOf(writer).toLatin1() + '=' + QByteArray::number(rounds) + '\n';
        }
        QCOMPARE(unixSettings(contentOf(m_file)), expected);
    }

    void writersWithoutTheLockLoseNothingAndWaitLittle()
    {
        constexpr int keys = 50;
        int refusals = 0;
        Processes processes;
        for (int writer = 0; writer < writers; ++writer) {
            processes.push_back(std::make_unique<SettingsProcess>(QStringList{
                QStringLiteral("write"), m_file, keyOf(writer), QString::number(keys)}));
        }
        int slowest = 0;
        for (const auto& process : processes) {
            const int milliseconds = slowestOf(*process);
            QVERIFY(milliseconds >= 0);
            slowest = qMax(slowest, milliseconds);
            // On a loaded machine a write may have to wait for too long. It is told then.
            const QList<QByteArray> lines =
                unixLines(process->readAllStandardError()).trimmed().split('\n');
            for (const QByteArray& line : lines) {
                const bool isRefusal =
                    line.endsWith(" was not written: somebody else is writing it.");
                QVERIFY2(line.isEmpty() || isRefusal, line.constData());
                refusals += int(isRefusal);
            }
        }
        qInfo("slowest of %d writes: %d ms; %d refused and repeated", writers * keys, slowest,
              refusals);
        QVERIFY(slowest < soon);
        for (int writer = 0; writer < writers; ++writer) {
            for (int number = 1; number <= keys; ++number) {
                CountSettings settings(m_file, keyOf(writer) + QString::number(number));
                settings.count = -1;
                settings.readSettings();
                QCOMPARE(settings.count, number);
            }
        }
        QCOMPARE(contentOf(m_file).count('\n'), writers * keys + 1);
    }

    // Whoever reads the file at any moment finds one whole text, and so does the next writer.
    void aWriterThatIsKilledLeavesAWholeFile()
    {
        constexpr int length = 50000;
        constexpr int longestLife = 60; // milliseconds
        const FakeApplicationInfo info(m_directory->path());
        const QString next = QStringLiteral("next");
        const int kills = areFullTests() ? 200 : 20;
        qint64 slowest = 0;
        QSet<QChar> seen;
        QRandomGenerator random = TestRandom::anew();
        for (int kill = 0; kill < kills; ++kill) {
            SettingsProcess writer({QStringLiteral("rewrite"), m_file, QString::number(length)});
            QCOMPARE(writer.said(), QStringLiteral("writing 1"));
            QTRY_VERIFY(QFile::exists(m_file));            // for the first write: the file stays
            QTest::qSleep(random.bounded(1, longestLife)); // to any moment of its writing
            QVERIFY(writer.killAtOnce());
            const QByteArray content = contentOf(m_file);
            TextSettings settings(m_file);
            const Stopwatch timer;
            settings.readSettings();
            const QString text = settings.text;
            QVERIFY(text == next || text == QString(length, text.at(0)));
            QCOMPARE(content, "[texts]\ntext=" + text.toLatin1() + '\n');
            settings.text = next;
            settings.writeSettings();
            slowest = qMax(slowest, timer.elapsed());
            settings.readSettings();
            QCOMPARE(settings.text, next);
            seen.insert(text.at(0));
        }
        qInfo("slowest read and write after a kill: %lld ms; %d different texts found", slowest,
              static_cast<int>(seen.size()));
        QVERIFY(slowest < atOnce);
        QVERIFY(!seen.isEmpty());

        // What they have left behind can be cleared away.
        MarkedFolders::removeLeft();
        QCOMPARE(QDir(m_temporary.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                 QStringList(QFileInfo(m_directory->path()).fileName()));
    }

    void aReaderNeverSeesHalfAFile()
    {
        constexpr int length = 50000;
        constexpr int enough = 10;
        const FakeApplicationInfo info(m_directory->path());
        SettingsProcess writer({QStringLiteral("rewrite"), m_file, QString::number(length)});
        QTRY_VERIFY(QFile::exists(m_file));
        QSet<QChar> seen;
        QElapsedTimer timer;
        timer.start();
        while (seen.size() < enough && !timer.hasExpired(20 * atOnce)) {
            TextSettings settings(m_file);
            settings.readSettings();
            QCOMPARE(settings.text.size(), length);
            QCOMPARE(settings.text, QString(length, settings.text.at(0)));
            seen.insert(settings.text.at(0));
        }
        QCOMPARE(seen.size(), enough);
        QVERIFY(!QFile::exists(m_file + QStringLiteral(".damaged")));
    }

    void writableOptionsOfAnotherProcessAreRefusedUntilItEnds_data()
    {
        QTest::addColumn<bool>("killed");
        QTest::newRow("by itself") << false;
        QTest::newRow("killed") << true;
    }

    void writableOptionsOfAnotherProcessAreRefusedUntilItEnds()
    {
        QFETCH(bool, killed);
        const FakeApplicationInfo info(m_directory->path());
        const FakeSession session;
        const QStringList create = {QStringLiteral("create"), m_directory->path()};
        SettingsProcess first(create);
        QCOMPARE(first.said(), QStringLiteral("made"));
        SettingsProcess second(create);
        QCOMPARE(second.said(), QStringLiteral("null"));
        QVERIFY(common_ComponentsLaunchOptions::create(ReadWriteAccess).isNull());
        QCOMPARE(session.shown.size(), 1);
        QVERIFY(!common_ComponentsLaunchOptions::create(ReadOnlyAccess).isNull());
        QCOMPARE(session.shown.size(), 1);
        QVERIFY(killed ? first.killAtOnce() : first.end());
        const Stopwatch timer;
        const auto options = common_ComponentsLaunchOptions::create(ReadWriteAccess);
        QVERIFY(!options.isNull());
        QVERIFY(timer.elapsed() < atOnce);
        SettingsProcess third(create);
        QCOMPARE(third.said(), QStringLiteral("null"));
    }

private:
    QTemporaryDir m_temporary;
    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_file;
};

QTEST_GUILESS_MAIN(tst_settings_processes)

#include "tst_settings_processes.moc"
