// SPDX-License-Identifier: MIT
#include "../support/ArchiveStage.h"
#include "../support/Desk.h"

#include <TestRandom.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>

#include <algorithm>
#include <csignal>
#include <memory>

// The window is killed while it works a queue off.
class tst_killed_window : public QObject
{
    Q_OBJECT

private:
    static constexpr int longTime = 30000; // ms, on a machine with much to do

    std::unique_ptr<Desk> m_desk;
    QStringList m_models; ///< all that were ever put into the queue

    QDir userFolder() const { return QDir(m_desk->path("user")); }
    RunArchive archive() const { return RunArchive(userFolder().filePath(text("runs"))); }

    QStringList queueFiles() const
    {
        return userFolder().entryList({text("queue-*.json")}, QDir::Files);
    }

    QStringList queued() const
    {
        QStringList models;
        const QStringList names = queueFiles();
        for (const QString& name : names) {
            const QJsonArray rows = QJsonDocument::fromJson(contentOf(userFolder().filePath(name)))
                                        .object()
                                        .value(text("runs"))
                                        .toArray();
            for (const QJsonValue& row : rows) {
                models.append(row[text("model")].toString());
            }
        }
        models.sort();
        return models;
    }

    QStringList recorded() const
    {
        QStringList models;
        const QVector<RunRecord> records = archive().records();
        for (const RunRecord& record : records) {
            models.append(record.model);
        }
        return models;
    }

    // Of another process each time.
    static QString markOfDead(int number)
    {
        QStringList parts = ArchiveStage::markOfDead().split(QLatin1Char('-'));
        parts.last() = QString::number(parts.last().toULongLong() + quint64(number));
        return parts.join(QLatin1Char('-'));
    }

    // As another window would have left them.
    void leaveQueue(int round)
    {
        QJsonArray rows;
        for (const char* const word : {"files", "steady", "valid"}) {
            const QString model = m_desk->path("models/%1-%2.nec").arg(round).arg(text(word));
            writeFile(model, word);
            m_models.append(model);
            rows.append(QJsonObject{{text("component"), text("runkest")},
                                    {text("model"), model},
                                    {text("runOptions"), QJsonArray{text("parallel")}},
                                    {text("held"), true}});
        }
        writeFile(userFolder().filePath(text("queue-%1.json").arg(markOfDead(round))),
                  QJsonDocument(QJsonObject{{text("runs"), rows}}).toJson());
    }

    void startWindow(QProcess& process, bool pressesRunAll)
    {
        m_desk->set("KEST_TEST_BUTTON", text(pressesRunAll ? "releaseAllButton" : "noButton"));
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_desk->start(process, {});
    }

    void checkWhatTheKillHasLeft() const
    {
        QCOMPARE(archive().records().size(), archive().numbers().size());
        const QVector<RunRecord> records = archive().records();
        for (const RunRecord& record : records) {
            QVERIFY(record.state != RunRecord::State::Running);
            QVERIFY(contentOf(record.modelCopyPath()) == contentOf(record.model));
        }
        const QStringList there = queued() + recorded();
        for (const QString& model : m_models) {
            QVERIFY2(there.contains(model), qPrintable(model + text(" was lost")));
        }
    }

    QStringList leftBehind() const
    {
        const auto all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
        return userFolder().entryList(
                   {text("gui_tmp_machfile*"), text(".gui_tmp_machfile*"), text("queue-left*")},
                   all) +
               QDir(archive().folder()).entryList({text(".*")}, all) +
               QDir(m_desk->path("temporary")).entryList(all) + m_desk->processes();
    }

    bool allHaveTheirEnds() const
    {
        const QVector<int> numbers = archive().numbers();
        return std::all_of(numbers.begin(), numbers.end(), [this](int number) {
            return QFile::exists(text("%1/%2/end.json").arg(archive().folder()).arg(number));
        });
    }

    // A start after the kill, in which nothing is run. What a component still uses stays until the
    // start after that.
    void checkTheNextStart()
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_desk->processes(), QStringList(), longTime);
        QProcess window;
        const QStringList waiting = queued();
        startWindow(window, false);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_desk->path("user/up")), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(allHaveTheirEnds(), longTime);
        ::kill(static_cast<pid_t>(window.processId()), SIGTERM);
        QVERIFY(window.waitForFinished(longTime));
        QCOMPARE(window.exitCode(), 0);
        QVERIFY(QFile::remove(m_desk->path("user/up")));
        QTRY_VERIFY2_WITH_TIMEOUT(leftBehind().isEmpty(),
                                  qPrintable(leftBehind().join(QLatin1Char(' '))), longTime);
        QCOMPARE(queued(), waiting);
        checkWhatTheKillHasLeft();
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        m_models.clear();
        QVERIFY(QFile::link(text(FAKE_COMPONENT), m_desk->path("home/bin/runkest")));
        QVERIFY(QDir().mkpath(m_desk->path("temporary")));
        m_desk->set("TMPDIR", m_desk->path("temporary"));
        m_desk->set("QT_QPA_PLATFORM", text("offscreen"));
        m_desk->set("QT_PLUGIN_PATH", text(RUN_PRESSER_PATH));
        m_desk->set("QT_QPA_GENERIC_PLUGINS", text("runpresser"));
        m_desk->set("KEST_TEST_UP", m_desk->path("user/up"));
        writeFile(m_desk->path("user/machines.kest"), "localhost:2\n");
        QSettings settings(m_desk->path("user/kestdesk.ini"), QSettings::IniFormat);
        settings.setValue(text("preferences/runsAtOnce"), 2);
    }

    void cleanup() { m_desk.reset(); }

    // From the time that the window is up, and sometimes before.
    void killedAtAnyMomentNoModelIsLost()
    {
        const int rounds = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 100 : 12;
        constexpr int longest = 900; // ms
        QRandomGenerator random = TestRandom::anew();
        int atWork = 0;
        for (int round = 1; round <= rounds; ++round) {
            leaveQueue(round);
            QProcess window;
            startWindow(window, true);
            if (round % 4 != 0) {
                QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_desk->path("user/up")), longTime);
            }
            QTest::qSleep(random.bounded(1, longest));
            window.kill();
            QVERIFY(window.waitForFinished(longTime));
            QFile::remove(m_desk->path("user/up"));
            const bool isWaiting = !queued().isEmpty();
            atWork += isWaiting && !recorded().isEmpty() ? 1 : 0;
            checkWhatTheKillHasLeft();
            checkTheNextStart();
            if (QTest::currentTestFailed()) {
                return;
            }
        }
        const QVector<RunRecord> records = archive().records();
        const auto interrupted =
            std::count_if(records.begin(), records.end(), [](const RunRecord& record) {
                return record.state == RunRecord::State::Interrupted;
            });
        qInfo("%d kills, %d of them at work, %d records, %d interrupted, %d models still wait",
              rounds, atWork, static_cast<int>(records.size()), static_cast<int>(interrupted),
              static_cast<int>(queued().size()));
        QVERIFY(!records.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_killed_window)

#include "tst_killed_window.moc"
