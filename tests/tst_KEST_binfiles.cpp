#include <FileSizeLimit.h>
#include <SettingsProcess.h>
#include <SpecialFile.h>
#include <Unprivileged.h>

#include <KEST_binfiles.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr qint64 atOnce = 1000; // milliseconds
constexpr uint64_t untouched = 4711;
const char* const lockSuffix = ".kestlock";

int lock(const QString& file, uint64_t* handle)
{
    return KEST_binfiles_set_lock_hard(file.toStdWString().c_str(), 0, handle);
}

int unlock(const QString& file, uint64_t handle)
{
    return KEST_binfiles_remove_lock(file.toStdWString().c_str(), handle);
}

QString statusOfOtherProcess(const QString& file)
{
    return SettingsProcess({QStringLiteral("try"), file}).said();
}

void makeOld(const QString& file)
{
    const timespec times[] = {{1, 0}, {1, 0}};
    ::utimensat(AT_FDCWD, QFile::encodeName(file).constData(), times, 0);
}

bool write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

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

class tst_KEST_binfiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        m_file = m_directory->filePath(QStringLiteral("kest.ini"));
        m_lock = m_file + QLatin1String(lockSuffix);
    }

    void takesALockOnceAndGivesAHandle()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QVERIFY(handle != 0);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void refusesASecondLockOfThisProcess()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        uint64_t second = untouched;
        QCOMPARE(lock(m_file, &second), 2);
        QCOMPARE(second, untouched);
        QCOMPARE(unlock(m_file, handle), 0);
        QCOMPARE(lock(m_file, &second), 0);
        QVERIFY(second != handle);
        QCOMPARE(unlock(m_file, second), 0);
    }

    void knowsAFileByEachOfItsPaths()
    {
        const QString folder = m_directory->filePath(QStringLiteral("link"));
        QVERIFY(QFile::link(m_directory->path(), folder));
        uint64_t handle = 0;
        QCOMPARE(lock(folder + QStringLiteral("/kest.ini"), &handle), 0);
        uint64_t second = untouched;
        QCOMPARE(lock(m_file, &second), 2);
        QVERIFY(QDir(m_directory->path()).mkdir(QStringLiteral("sub")));
        QCOMPARE(lock(m_directory->filePath(QStringLiteral("./sub/../kest.ini")), &second), 2);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void knowsAFileByItsLinks_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::newRow("that is there") << true;
        QTest::newRow("that is not there yet") << false;
    }

    void knowsAFileByItsLinks()
    {
        QFETCH(bool, exists);
        QVERIFY(!exists || write(m_file, "content"));
        const QString first = m_directory->filePath(QStringLiteral("first"));
        const QString second = m_directory->filePath(QStringLiteral("second"));
        QVERIFY(QFile::link(m_file, first));
        QVERIFY(QFile::link(QStringLiteral("first"), second));
        uint64_t handle = 0;
        QCOMPARE(lock(second, &handle), 0);
        uint64_t other = untouched;
        QCOMPARE(lock(m_file, &other), 2);
        QCOMPARE(lock(first, &other), 2);
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
        QCOMPARE(unlock(first, handle), 0);
    }

    void linksInACircleAreNoReasonToHang()
    {
        const QString first = m_directory->filePath(QStringLiteral("first"));
        const QString second = m_directory->filePath(QStringLiteral("second"));
        QVERIFY(QFile::link(first, second));
        QVERIFY(QFile::link(second, first));
        uint64_t handle = 0;
        QCOMPARE(lock(first, &handle), 0);
        QCOMPARE(unlock(first, handle), 0);
    }

    void refusesALockOfAnotherProcess()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        uint64_t handle = untouched;
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(lock(m_file, &handle), 1);
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(handle, untouched);
    }

    void isRefusedToAnotherProcess()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
        QCOMPARE(unlock(m_file, handle), 0);
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 0"));
    }

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
        QElapsedTimer timer;
        timer.start();
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
        qint64 slowest = 0;
        for (int kill = 0; kill < kills; ++kill) {
            SettingsProcess owner({QStringLiteral("lock-for-ever"), m_file});
            QCOMPARE(owner.said(), QStringLiteral("locking 1"));
            QTest::qSleep(QRandomGenerator::global()->bounded(1, 5));
            QCOMPARE(::kill(static_cast<pid_t>(owner.processId()), SIGKILL), 0);
            uint64_t handle = 0;
            QElapsedTimer timer;
            timer.start();
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

    void childProcessesDoNotInheritTheLock()
    {
        SettingsProcess holder({QStringLiteral("hold-with-child"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        QVERIFY(holder.said().startsWith(QStringLiteral("child ")));
        QVERIFY(holder.killAtOnce());
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void removesOnlyTheLockThatTheHandleStandsFor()
    {
        const QString other = m_directory->filePath(QStringLiteral("other.ini"));
        uint64_t handle = 0;
        uint64_t otherHandle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(lock(other, &otherHandle), 0);
        QCOMPARE(unlock(m_file, 0), 1);
        QCOMPARE(unlock(m_file, 999999), 1);
        QCOMPARE(unlock(m_file, otherHandle), 1);
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
        QCOMPARE(statusOfOtherProcess(other), QStringLiteral("status 1"));
        QCOMPARE(unlock(other, otherHandle), 0);
        QCOMPARE(unlock(other, otherHandle), 1);
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void anOldHandleDoesNotRemoveANewLock()
    {
        uint64_t old = 0;
        QCOMPARE(lock(m_file, &old), 0);
        QCOMPARE(unlock(m_file, old), 0);
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(unlock(m_file, old), 1);
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void aHandleOfAnotherProcessRemovesNothing()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        for (uint64_t handle = 0; handle < 100; ++handle) {
            QCOMPARE(unlock(m_file, handle), 1);
        }
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
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
        QElapsedTimer timer;
        timer.start();
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
        QElapsedTimer timer;
        timer.start();
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
        QElapsedTimer timer;
        timer.start();
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
        if (kind == S_IFCHR && ::geteuid() != 0) {
            QTest::qSkip("only the administrator makes devices", __FILE__, __LINE__);
            return;
        }
        QVERIFY(SpecialFile::make(kind, m_lock));
        QElapsedTimer timer;
        timer.start();
        uint64_t handle = untouched;
        char host[8];
        QCOMPARE(KEST_binfiles_lock_owner(m_file.toStdWString().c_str(), host, sizeof host), 0);
        KEST_binfiles_remove_left_lock(m_file.toStdWString().c_str(), 0);
        QCOMPARE(lock(m_file, &handle), 3);
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(handle, untouched);
        QCOMPARE(SpecialFile::kindOf(m_lock), kind);
    }

    void makesMissingFolders()
    {
        const QString deep = m_directory->filePath(QStringLiteral("a/b/c/kest.ini"));
        uint64_t handle = 0;
        QCOMPARE(lock(deep, &handle), 0);
        QVERIFY(QDir(m_directory->filePath(QStringLiteral("a/b/c"))).exists());
        QVERIFY(!QFile::exists(deep));
        QCOMPARE(statusOfOtherProcess(deep), QStringLiteral("status 1"));
        QCOMPARE(unlock(deep, handle), 0);
    }

    void saysWhenTheFolderCannotBeMade()
    {
        const QString obstacle = m_directory->filePath(QStringLiteral("file"));
        QVERIFY(write(obstacle, "x"));
        uint64_t handle = untouched;
        QCOMPARE(lock(obstacle + QStringLiteral("/kest.ini"), &handle), 3);
        QCOMPARE(lock(obstacle + QStringLiteral("/deeper/kest.ini"), &handle), 3);
        QCOMPARE(handle, untouched);
        QCOMPARE(contentOf(obstacle), QByteArray("x"));
    }

    void saysWhenTheFolderCannotBeWritten()
    {
        QVERIFY(QFile::setPermissions(m_directory->path(), QFile::ReadOwner | QFile::ExeOwner |
                                                               QFile::ReadOther | QFile::ExeOther));
        uint64_t handle = untouched;
        {
            const Unprivileged user; // permissions do not bind the administrator
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(lock(m_file, &handle), 3);
            QVERIFY(timer.elapsed() < atOnce);
        }
        QCOMPARE(handle, untouched);
        QVERIFY(QFile::setPermissions(m_directory->path(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QVERIFY(QDir(m_directory->path()).isEmpty());
    }

    void saysWhenTheDiskIsFull_data()
    {
        QTest::addColumn<int>("room"); // bytes
        QTest::newRow("none") << 0;
        QTest::newRow("less than the owner takes") << 3;
    }

    void saysWhenTheDiskIsFull()
    {
        QFETCH(int, room);
        uint64_t handle = untouched;
        {
            const FileSizeLimit limit{rlim_t(room)};
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(lock(m_file, &handle), 3);
            QVERIFY(timer.elapsed() < atOnce);
        }
        QCOMPARE(handle, untouched);
        QVERIFY(QDir(m_directory->path()).isEmpty());
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void saysWhenTheNameIsTooLong()
    {
        uint64_t handle = untouched;
        QCOMPARE(lock(m_directory->filePath(QString(300, QLatin1Char('x'))), &handle), 3);
        QCOMPARE(handle, untouched);
    }

    void worksForEveryName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("blanks") << QStringLiteral("my kest settings.ini");
        QTest::newRow("other scripts") << QString::fromUtf8("\xc3\xa4\xe6\xbc\xa2\xf0\x9f\x94\x92");
        QTest::newRow("line break") << QStringLiteral("a\nb");
    }

    void worksForEveryName()
    {
        QFETCH(QString, name);
        const QString file = m_directory->filePath(name);
        uint64_t handle = 0;
        QCOMPARE(lock(file, &handle), 0);
        const QStringList files = QDir(m_directory->path()).entryList(QDir::Files);
        QCOMPARE(files, QStringList(name + QLatin1String(lockSuffix)));
        QCOMPARE(unlock(file, handle), 0);
    }

    void doesNotTouchTheFile()
    {
        QVERIFY(write(m_file, "content"));
        makeOld(m_file);
        const QDateTime modified = QFileInfo(m_file).lastModified();
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(contentOf(m_file), QByteArray("content"));
        QCOMPARE(unlock(m_file, handle), 0);
        QCOMPARE(contentOf(m_file), QByteArray("content"));
        QCOMPARE(QFileInfo(m_file).lastModified(), modified);
    }

    void leavesNothingBehind()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(unlock(m_file, handle), 0);
        QVERIFY(QDir(m_directory->path()).isEmpty());
    }

    void isNotInTheWayOfQSettings()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QVERIFY(!QFile::exists(m_file + QStringLiteral(".lock")));
        QElapsedTimer timer;
        timer.start();
        {
            QSettings settings(m_file, QSettings::IniFormat);
            settings.setValue(QStringLiteral("a"), 1);
        }
        QVERIFY(timer.elapsed() < atOnce);
        QVERIFY(contentOf(m_file).contains("a=1"));
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 1"));
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void aLockThatSomebodyDeletedAndSomebodyElseTookIsNotRemoved()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QVERIFY(QFile::remove(m_lock));
        SettingsProcess holder({QStringLiteral("hold"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        QCOMPARE(unlock(m_file, handle), 0);
        QVERIFY(QFile::exists(m_lock));
        QCOMPARE(lock(m_file, &handle), 1);
    }

    void namesTheOwner()
    {
        const std::wstring file = m_file.toStdWString();
        char host[300] = "x";
        QCOMPARE(KEST_binfiles_lock_owner(file.c_str(), host, sizeof host), 0);
        QCOMPARE(host, "");
        SettingsProcess holder({QStringLiteral("hold"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        QCOMPARE(KEST_binfiles_lock_owner(file.c_str(), host, sizeof host), holder.processId());
        QCOMPARE(QString::fromUtf8(host), QSysInfo::machineHostName());
    }

    void namesNoOwnerThatHasEnded()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        QVERIFY(holder.killAtOnce());
        char host[300] = "x";
        QVERIFY(QFile::exists(m_lock));
        QCOMPARE(KEST_binfiles_lock_owner(m_file.toStdWString().c_str(), host, sizeof host), 0);
        QCOMPARE(host, "");
    }

    void cutsTheOwnersHostToTheBuffer()
    {
        QVERIFY(write(m_lock, "12\nkestdesk\nelsewhere\n"));
        const std::wstring file = m_file.toStdWString();
        char host[] = "xxxxxxxxx";
        QCOMPARE(KEST_binfiles_lock_owner(file.c_str(), host, 5), 12);
        QCOMPARE(host, "else");
        QCOMPARE(host[5], 'x');
        QCOMPARE(KEST_binfiles_lock_owner(file.c_str(), host, 0), 12);
        QCOMPARE(host, "else");
        QCOMPARE(KEST_binfiles_lock_owner(file.c_str(), nullptr, 0), 12);
    }

    // Also between processes that find what killed ones left: each leaves it now and then.
    void neverHasTwoHolders()
    {
        const QString rounds =
            QString::number(qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 1000 : 100);
        constexpr int racers = 8;
        std::vector<std::unique_ptr<SettingsProcess>> processes;
        for (int racer = 0; racer < racers; ++racer) {
            processes.push_back(std::make_unique<SettingsProcess>(
                QStringList{QStringLiteral("race"), m_file, rounds}));
        }
        for (const auto& process : processes) {
            QCOMPARE(process->said(), QStringLiteral("clashes 0"));
            QVERIFY(process->hasEndedWell());
        }
    }

private:
    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_file;
    QString m_lock;
};

QTEST_GUILESS_MAIN(tst_KEST_binfiles)

#include "tst_KEST_binfiles.moc"
