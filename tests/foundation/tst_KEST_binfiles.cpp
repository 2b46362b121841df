// SPDX-License-Identifier: MIT
#include "LockedFile.h"

#include <FileSizeLimit.h>
#include <SettingsProcess.h>
#include <Stopwatch.h>
#include <Unprivileged.h>

#include <KEST_binfiles.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QtTest>

#include <memory>
#include <vector>

#include <unistd.h>

namespace {

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

} // namespace

class tst_KEST_binfiles : public QObject, protected LockStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

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
        const Stopwatch timer;
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
        SKIP_WITHOUT_OTHER_USERS();
        QVERIFY(QFile::setPermissions(m_directory->path(), QFile::ReadOwner | QFile::ExeOwner |
                                                               QFile::ReadOther | QFile::ExeOther));
        uint64_t handle = untouched;
        {
            const Unprivileged user; // permissions do not bind the administrator
            const Stopwatch timer;
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
            const Stopwatch timer;
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
        const Stopwatch timer;
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
        processes.reserve(racers);
        for (int racer = 0; racer < racers; ++racer) {
            processes.push_back(std::make_unique<SettingsProcess>(
                QStringList{QStringLiteral("race"), m_file, rounds}));
        }
        for (const auto& process : processes) {
            QCOMPARE(process->said(), QStringLiteral("clashes 0"));
            QVERIFY(process->hasEndedWell());
        }
    }
};

QTEST_GUILESS_MAIN(tst_KEST_binfiles)
#include "tst_KEST_binfiles.moc"
