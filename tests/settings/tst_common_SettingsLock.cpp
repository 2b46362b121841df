// SPDX-License-Identifier: MIT
#include <SettingsFolders.h>
#include <SettingsObjects.h>
#include <SettingsProcess.h>
#include <Stopwatch.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_LaunchOptionNames.h>
#include <common_LockFile.h>
#include <common_SettingsLock.h>

#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace {

using Lock = common_SettingsLock;
using Options = common_ComponentsLaunchOptions;
using std::chrono::milliseconds;

QString runParallel()
{
    return QLatin1String(common_LaunchOptionNames::runParallel);
}

} // namespace

class tst_common_SettingsLock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folders = std::make_unique<SettingsFolders>(); }

    void cleanup() { QVERIFY2(m_folders->session.shown.isEmpty(), "a message was shown"); }

    void isTheLockThatOtherObjectsRespect()
    {
        {
            Lock lock(*Options::create(ReadOnlyAccess));
            QVERIFY(!lock.isLocked());
            QVERIFY(lock.tryLock());
            QVERIFY(lock.isLocked());
            QVERIFY(lock.tryLock());
            QCOMPARE(lock.failure(), Lock::NoFailure);
            QCOMPARE(lock.problem(), QString());
            QVERIFY(Options::create(ReadWriteAccess).isNull());
            QCOMPARE(m_folders->session.shown.size(), 1); // by the object that was refused
            m_folders->session.shown.clear();
        }
        QVERIFY(!Options::create(ReadWriteAccess).isNull());
    }

    void unlockReleases()
    {
        Lock lock(m_folders->userFile());
        lock.unlock();
        QVERIFY(lock.tryLock());
        lock.unlock();
        QVERIFY(!lock.isLocked());
        QVERIFY(!Options::create(ReadWriteAccess).isNull());
        QVERIFY(lock.tryLock());
    }

    void changesWithinTheScopeAreNotLost()
    {
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        {
            const Options::Pointer other = Options::create(ReadWriteAccess);
            (*other)[QLatin1String(common_LaunchOptionNames::kestRemoteHost)].assignFromQString(
                QStringLiteral("atlas"));
            other->writeSettings();
        }
        Lock lock(*options);
        QVERIFY(lock.tryLock());
        options->readSettings();
        (*options)[runParallel()].assignFromBool(true);
        QCOMPARE(options->tryWriteSettings(), QString());
        const Options::Pointer saved = Options::create(ReadOnlyAccess);
        QVERIFY((*saved)[runParallel()].castToBool());
        QCOMPARE((*saved)[QLatin1String(common_LaunchOptionNames::kestRemoteHost)].castToQString(),
                 QStringLiteral("atlas"));
    }

    void namesAnotherProcessThatHoldsIt()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_folders->userFile()});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        Lock lock(m_folders->userFile());
        QVERIFY(!lock.tryLock());
        QCOMPARE(lock.failure(), Lock::HeldByOther);
        QVERIFY(!lock.isLocked());
        const QString owner = QStringLiteral("%1 as process %2 on %3")
                                  .arg(QFileInfo(QStringLiteral(KEST_SETTINGS_PROCESS)).fileName())
                                  .arg(holder.processId())
                                  .arg(QSysInfo::machineHostName());
        QCOMPARE(lock.owner(), owner);
        QCOMPARE(lock.problem(), m_folders->userFile() + QStringLiteral(" is locked by ") + owner);
        QVERIFY(holder.end());
        QVERIFY(lock.tryLock());
        QCOMPARE(lock.problem(), QString());
        QCOMPARE(lock.failure(), Lock::NoFailure);
    }

    void waitsAsLongAsTheTimeout()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_folders->userFile()});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        Lock lock(m_folders->userFile());
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!lock.tryLock(milliseconds(400)));
        QVERIFY2(timer.elapsed() >= 400, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(lock.failure(), Lock::HeldByOther);
    }

    void triesOnceWithoutATimeout()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_folders->userFile()});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        Lock lock(m_folders->userFile());
        const Stopwatch timer;
        QVERIFY(!lock.tryLock());
        QVERIFY(timer.elapsed() < 500);
    }

    void takesTheLockAsSoonAsItIsReleased()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_folders->userFile()});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        holder.closeWriteChannel(); // ends while this process waits
        Lock lock(m_folders->userFile());
        QVERIFY(lock.tryLock(milliseconds(60000)));
        QVERIFY(lock.isLocked());
    }

    void takesTheLockOfAKilledProcess()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_folders->userFile()});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        QVERIFY(holder.killAtOnce());
        Lock lock(m_folders->userFile());
        QVERIFY(lock.tryLock());
    }

    // Waiting for this thread's own object would never end well.
    void doesNotWaitForTheSameProcess()
    {
        Lock first(m_folders->userFile());
        QVERIFY(first.tryLock());
        Lock second(m_folders->userFile());
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!second.tryLock(milliseconds(60000)));
        QVERIFY(timer.elapsed() < 30000);
        QCOMPARE(second.failure(), Lock::HeldByThis);
        QCOMPARE(second.problem(),
                 m_folders->userFile() +
                     QStringLiteral(" is locked by another part of this program"));
    }

    void aRefusedLockDoesNotReleaseTheOther()
    {
        Lock first(m_folders->userFile());
        QVERIFY(first.tryLock());
        {
            Lock second(m_folders->userFile());
            QVERIFY(!second.tryLock());
        }
        Lock third(m_folders->userFile());
        QVERIFY(!third.tryLock());
    }

    // Where common_LockFile lets the user go on.
    void failsWhereNoLockCanBeMade()
    {
        QVERIFY(SettingsFolders::write(m_folders->path() + QStringLiteral("/file"), "x"));
        const QString name = m_folders->path() + QStringLiteral("/file/kest.ini");
        QVERIFY(common_LockFile(QFileInfo(name)).lock(false));
        Lock lock(name);
        QVERIFY(!lock.tryLock(milliseconds(60000)));
        QCOMPARE(lock.failure(), Lock::CannotMakeLock);
        QCOMPARE(lock.problem(), name + QStringLiteral(" cannot be locked: the file ") + name +
                                     QStringLiteral(".kestlock cannot be made"));
    }

    void hasNoOwnerUntilItIsLocked()
    {
        Lock lock(m_folders->userFile());
        QCOMPARE(lock.owner(), QString());
        QVERIFY(lock.tryLock());
        QVERIFY(lock.owner().contains(QString::number(QCoreApplication::applicationPid())));
    }

private:
    std::unique_ptr<SettingsFolders> m_folders;
};

QTEST_GUILESS_MAIN(tst_common_SettingsLock)

#include "tst_common_SettingsLock.moc"
