// SPDX-License-Identifier: MIT
#include "LockedFile.h"

#include <SettingsProcess.h>
#include <SpecialFile.h>
#include <Stopwatch.h>
#include <TestRandom.h>

#include <KEST_binfiles.h>

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QtTest>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace {

/// While it lives, QProcess does not hear that children have ended, and so does not ask for them.
/// In no thread: to block the signal in one leaves it to another.
class NoNewsOfChildren
{
public:
    NoNewsOfChildren()
    {
        struct sigaction nothing = {};
        nothing.sa_handler = SIG_DFL;
        ::sigaction(SIGCHLD, &nothing, &m_before);
    }
    ~NoNewsOfChildren()
    {
        ::sigaction(SIGCHLD, &m_before, nullptr);
        ::raise(SIGCHLD); // for those that have ended meanwhile
    }

    NoNewsOfChildren(const NoNewsOfChildren&) = delete;
    NoNewsOfChildren& operator=(const NoNewsOfChildren&) = delete;

private:
    struct sigaction m_before = {};
};

/// A process that was killed and that its parent has not asked for yet.
bool waitForZombie(qint64 process)
{
    siginfo_t information = {};
    return ::waitid(P_PID, static_cast<id_t>(process), &information, WEXITED | WNOWAIT) == 0;
}

} // namespace

class tst_KEST_binfiles_left_locks : public QObject, protected LockStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void takesOverWhenTheHolderEnds_data()
    {
        QTest::addColumn<bool>("killed");
        QTest::newRow("by itself") << false;
        QTest::newRow("killed") << true;
    }

    void takesOverWhenTheHolderEnds()
    {
        QFETCH(bool, killed);
        SettingsProcess holder({QStringLiteral("hold"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 1);
        QVERIFY(killed ? holder.killAtOnce() : holder.end());
        const Stopwatch timer;
        QCOMPARE(lock(m_file, &handle), 0);
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    // Its parent may not ask for it for long: a window that stands still, a shell.
    void takesOverFromAKilledProcessThatNobodyAskedFor()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        const NoNewsOfChildren nobodyAsks;
        QCOMPARE(::kill(static_cast<pid_t>(holder.processId()), SIGKILL), 0);
        QVERIFY(waitForZombie(holder.processId()));
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    // A process that makes and removes the lock all the time is killed anywhere in between.
    void isNeverRefusedRightAfterAKill()
    {
        const int kills = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 500 : 50;
        QRandomGenerator random = TestRandom::anew();
        qint64 slowest = 0;
        for (int kill = 0; kill < kills; ++kill) {
            SettingsProcess owner({QStringLiteral("lock-for-ever"), m_file});
            QCOMPARE(owner.said(), QStringLiteral("locking 1"));
            QTest::qSleep(random.bounded(1, 5)); // to any moment of its work
            QCOMPARE(::kill(static_cast<pid_t>(owner.processId()), SIGKILL), 0);
            uint64_t handle = 0;
            const Stopwatch timer;
            QCOMPARE(lock(m_file, &handle), 0);
            slowest = qMax(slowest, timer.elapsed());
            QCOMPARE(unlock(m_file, handle), 0);
        }
        qInfo("slowest lock after a kill: %lld ms", slowest);
        QVERIFY(slowest < atOnce);
        QVERIFY(QDir(m_directory->path()).isEmpty());
    }

    // As after a restart of the machine: the number and even the program are somebody else's.
    void takesOverWhatALivingProcessOfThatNumberDoesNotHold()
    {
        const QString other = m_directory->filePath(QStringLiteral("other.ini"));
        SettingsProcess living({QStringLiteral("hold"), other});
        QCOMPARE(living.said(), QStringLiteral("status 0"));
        QVERIFY(QFile::copy(other + QLatin1String(lockSuffix), m_lock));
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void aLockIsNeverTooOld()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        makeOld(m_lock);
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void takesOverWhatADeadProcessLeft_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("old");
        const QByteArray here = "kestdesk\n" + QSysInfo::machineHostName().toUtf8() + '\n';
        for (const bool old : {false, true}) {
            const auto add = [old](const char* what, const QByteArray& content) {
                QTest::addRow("%s, %s", what, old ? "old" : "just made") << content << old;
            };
            add("empty", QByteArray());
            add("cut", "12");
            add("no line end", "4194303\nkestdesk");
            add("of a dead process", "4194303\n" + here);
            add("process id reused", "1\n" + here);
            add("negative id", "-1\n\n\n");
            add("huge id", QByteArray(400, '9') + '\n');
            add("binary", QByteArray("\0\xff\xfe\x80\0\n\0\n", 8));
        }
    }

    void takesOverWhatADeadProcessLeft()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, old);
        QVERIFY(write(m_lock, content));
        if (old) {
            makeOld(m_lock);
        }
        uint64_t handle = 0;
        const Stopwatch timer;
        QCOMPARE(lock(m_file, &handle), 0);
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    // Its process cannot be asked for, and may well live.
    void refusesALockOfAnotherHostAtOnce()
    {
        const QByteArray left("1\nkestdesk\nelsewhere\n");
        QFile file(m_file + QStringLiteral(".kestlock"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(left);
        file.close();
        makeOld(file.fileName());
        const Stopwatch timer;
        uint64_t handle = 7;
        QCOMPARE(lock(m_file, &handle), 1);
        QCOMPARE(handle, uint64_t(7));
        QVERIFY(timer.elapsed() < 1000);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), left);
    }

    void removesALeftLockByItsAgeWhenAskedTo()
    {
        QFile file(m_file + QStringLiteral(".kestlock"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("1\nkestdesk\nelsewhere\n");
        file.close();
        const std::wstring path = m_file.toStdWString();
        KEST_binfiles_remove_left_lock(path.c_str(), 60000);
        QVERIFY(file.exists());
        makeOld(file.fileName());
        KEST_binfiles_remove_left_lock(path.c_str(), 60000);
        QVERIFY(!file.exists());
    }

    void doesNotRemoveALockThatIsHeldHoweverOld()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        makeOld(m_file + QStringLiteral(".kestlock"));
        KEST_binfiles_remove_left_lock(m_file.toStdWString().c_str(), 0);
        QVERIFY(QFile::exists(m_file + QStringLiteral(".kestlock")));
        QCOMPARE(KEST_binfiles_remove_lock(m_file.toStdWString().c_str(), handle), 0);
    }

    void takesOverAHugeFile_data()
    {
        QTest::addColumn<bool>("old");
        QTest::newRow("just made") << false;
        QTest::newRow("old") << true;
    }

    void takesOverAHugeFile()
    {
        QFETCH(bool, old);
        QFile left(m_lock);
        QVERIFY(left.open(QIODevice::WriteOnly));
        QVERIFY(left.resize(qint64(2) << 30)); // sparse
        left.close();
        if (old) {
            makeOld(m_lock);
        }
        const Stopwatch timer;
        uint64_t handle = 0;
        char host[8];
        QCOMPARE(KEST_binfiles_lock_owner(m_file.toStdWString().c_str(), host, sizeof host), 0);
        QCOMPARE(lock(m_file, &handle), 0);
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(unlock(m_file, handle), 0);
        QVERIFY(QDir(m_directory->path()).isEmpty());
    }

    void doesNotHangOnWhatIsNoFile_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("directory") << int(S_IFDIR);
        QTest::newRow("pipe") << int(S_IFIFO);
        QTest::newRow("device") << int(S_IFCHR);
        QTest::newRow("socket") << int(S_IFSOCK);
        QTest::newRow("link to nowhere") << int(S_IFLNK);
    }

    void doesNotHangOnWhatIsNoFile()
    {
        QFETCH(int, kind);
        SPECIAL_FILE_OR_SKIP(kind, m_lock);
        const Stopwatch timer;
        uint64_t handle = untouched;
        char host[8];
        QCOMPARE(KEST_binfiles_lock_owner(m_file.toStdWString().c_str(), host, sizeof host), 0);
        KEST_binfiles_remove_left_lock(m_file.toStdWString().c_str(), 0);
        QCOMPARE(lock(m_file, &handle), 3);
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(handle, untouched);
        QCOMPARE(SpecialFile::kindOf(m_lock), kind);
    }
};

QTEST_GUILESS_MAIN(tst_KEST_binfiles_left_locks)
#include "tst_KEST_binfiles_left_locks.moc"
