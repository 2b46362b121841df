// SPDX-License-Identifier: MIT
#include <RunQueue.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

constexpr int longTime = 30000; // ms

QueuedRun runOf(const QString& model)
{
    QueuedRun run;
    run.component = QStringLiteral("runkest");
    run.model = QStringLiteral("/models/") + model;
    return run;
}

} // namespace

class tst_run_queue : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RunQueue> m_queue;
    QVector<QueuedRun> m_started;

    void make(int runsAtOnce)
    {
        m_started.clear();
        m_queue = std::make_unique<RunQueue>(runsAtOnce);
        connect(m_queue.get(), &RunQueue::startRequested, this,
                [this](const QueuedRun& run) { m_started.append(run); });
    }

    void add(const char* models)
    {
        const QStringList all = QString::fromLatin1(models).split(QLatin1Char(' '));
        for (const QString& model : all) {
            m_queue->add(runOf(model));
        }
    }

    static void settle() { QTest::qWait(50); }

    static QStringList names(const QVector<QueuedRun>& runs)
    {
        QStringList result;
        for (const QueuedRun& run : runs) {
            result.append(run.model.section(QLatin1Char('/'), -1));
        }
        return result;
    }

    QString started() const { return names(m_started).join(QLatin1Char(' ')); }
    QString waiting() const { return names(m_queue->runs()).join(QLatin1Char(' ')); }
    int idOf(const QString& model) const
    {
        return m_queue->runs().at(names(m_queue->runs()).indexOf(model)).id;
    }

private Q_SLOTS:
    void oneAfterTheOther()
    {
        make(1);
        add("a b c");
        QCOMPARE(started(), QString()); // not before control is back in the event loop
        settle();
        QCOMPARE(started(), QStringLiteral("a"));
        QCOMPARE(waiting(), QStringLiteral("b c"));
        QCOMPARE(m_queue->runningCount(), 1);
        m_queue->onEnded(m_started.at(0));
        settle();
        QCOMPARE(started(), QStringLiteral("a b"));
        m_queue->onEnded(m_started.at(1));
        settle();
        m_queue->onEnded(m_started.at(2));
        settle();
        QCOMPARE(started(), QStringLiteral("a b c"));
        QCOMPARE(m_queue->runningCount(), 0);
    }

    void asManyAsMayRunAtOnce()
    {
        make(2);
        add("a b c d");
        settle();
        QCOMPARE(started(), QStringLiteral("a b"));
        m_queue->setRunsAtOnce(3);
        settle();
        QCOMPARE(started(), QStringLiteral("a b c"));
        m_queue->setRunsAtOnce(0); // counts as 1
        m_queue->onEnded(m_started.at(0));
        m_queue->onEnded(m_started.at(1));
        settle();
        QCOMPARE(started(), QStringLiteral("a b c"));
        m_queue->onEnded(m_started.at(2));
        settle();
        QCOMPARE(started(), QStringLiteral("a b c d"));
    }

    void runsOfOneModelAreNeverAtTheSameTime()
    {
        make(3);
        add("a ../models/a b");
        settle();
        QCOMPARE(m_started.size(), 2);
        QCOMPARE(started(), QStringLiteral("a b"));
        m_queue->onEnded(m_started.at(0));
        settle();
        QCOMPARE(m_started.size(), 3);
    }

    void heldRunsArePassedOver()
    {
        make(1);
        add("a b c");
        m_queue->setHeld(idOf(QStringLiteral("a")), true);
        settle();
        QCOMPARE(started(), QStringLiteral("b"));
        QCOMPARE(waiting(), QStringLiteral("a c"));
        m_queue->setHeld(idOf(QStringLiteral("a")), false);
        m_queue->onEnded(m_started.at(0));
        settle();
        QCOMPARE(started(), QStringLiteral("b a"));
    }

    void orderCanBeChanged_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char* model, int position, const char* expected) {
            QTest::addRow("%s to %d", model, position)
                << QString::fromLatin1(model) << position << QString::fromLatin1(expected);
        };
        add("c", 0, "c a b d");
        add("a", 3, "b c d a");
        add("b", 2, "a c b d");
        add("b", 1, "a b c d");
        add("d", -7, "d a b c");
        add("a", 99, "b c d a");
    }

    void orderCanBeChanged()
    {
        QFETCH(QString, model);
        QFETCH(int, position);
        QFETCH(QString, expected);
        make(1);
        add("a b c d");
        m_queue->move(idOf(model), position);
        QCOMPARE(waiting(), expected);
        settle();
        QCOMPARE(started(), QString(expected.at(0)));
    }

    void removedRunsDoNotBegin()
    {
        make(1);
        add("a b");
        m_queue->remove(idOf(QStringLiteral("a")));
        m_queue->remove(12345);
        m_queue->move(12345, 0);
        m_queue->setHeld(12345, true);
        settle();
        QCOMPARE(started(), QStringLiteral("b"));
    }

    void postponedRunsAreOvertakenAndTriedAgain()
    {
        make(1);
        add("a b");
        settle();
        m_queue->postpone(m_started.at(0));
        settle();
        QCOMPARE(started(), QStringLiteral("a b"));
        QCOMPARE(waiting(), QStringLiteral("a"));
        m_queue->onEnded(m_started.at(1));
        QTRY_COMPARE_WITH_TIMEOUT(started(), QStringLiteral("a b a"), longTime);
    }

    void nothingBeginsAfterClosing()
    {
        make(1);
        add("a");
        m_queue->close();
        settle();
        QCOMPARE(started(), QString());
        QCOMPARE(waiting(), QStringLiteral("a"));
    }

    void slotMayChangeTheQueue()
    {
        make(2);
        connect(m_queue.get(), &RunQueue::startRequested, this, [this](const QueuedRun& run) {
            if (run.model.endsWith(QLatin1Char('a'))) {
                m_queue->remove(idOf(QStringLiteral("b")));
                m_queue->onEnded(run);
            }
        });
        add("a b c");
        settle();
        QCOMPARE(started(), QStringLiteral("a c"));
    }

    void runsThatHaveNoRecordYetAreKeptInTheFile()
    {
        const QTemporaryDir folder;
        make(1);
        m_queue->keepIn(QueueFile(folder.path()));
        add("a b");
        settle();
        QCOMPARE(started(), QStringLiteral("a"));
        const auto content = [&folder] {
            QByteArray all;
            const QFileInfoList files = QDir(folder.path()).entryInfoList(QDir::Files);
            for (const QFileInfo& info : files) {
                QFile file(info.filePath());
                all += file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
            }
            return all;
        };
        QVERIFY(content().contains("/models/a"));
        QVERIFY(content().contains("/models/b"));
        m_queue->onRecorded(m_started.at(0));
        QVERIFY(!content().contains("/models/a"));
        m_queue->onEnded(m_started.at(0));
        settle();
        QVERIFY(content().contains("/models/b"));
        m_queue->onEnded(m_started.at(1));
        QCOMPARE(content(), QByteArray());
    }

    void unwritableFileIsReported()
    {
        const QTemporaryDir folder;
        QFile inTheWay(folder.filePath(QStringLiteral("user")));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        make(1);
        m_queue->keepIn(QueueFile(inTheWay.fileName()));
        QSignalSpy notKept(m_queue.get(), &RunQueue::notKept);
        add("a");
        QCOMPARE(notKept.size(), 1);
        QVERIFY(notKept.at(0).at(0).toString().contains(inTheWay.fileName()));
        settle();
        QCOMPARE(started(), QStringLiteral("a"));
    }
};

QTEST_GUILESS_MAIN(tst_run_queue)

#include "tst_run_queue.moc"
