// SPDX-License-Identifier: MIT
#include <FakeServices.h>
#include <SettingsProcess.h>
#include <Stopwatch.h>

#include <common_ActivePtr.h>
#include <common_LockFile.h>

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

using Pointer = common_ActivePtr<common_LockFile>;

} // namespace

class tst_common_LockFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        m_file = QFileInfo(m_directory->filePath(QStringLiteral("kest.ini")));
    }

    void keepsOthersOutUntilTheLastReferenceGoes()
    {
        const FakeSession session;
        Pointer first(new common_LockFile(m_file));
        QVERIFY(first->lock(false));
        Pointer shared = first;
        first.reset();
        Pointer second(new common_LockFile(m_file));
        QVERIFY(!second->lock(false));
        shared.reset();
        QVERIFY(second->lock(false));
        QCOMPARE(session.shown.size(), 1);
    }

    void aRefusedLockFileDoesNotRemoveTheLock()
    {
        const FakeSession session;
        common_LockFile holder(m_file);
        QVERIFY(holder.lock(false));
        for (const bool keepHandle : {false, true}) {
            common_LockFile refused(m_file);
            QVERIFY(!refused.lock(keepHandle));
        }
        common_LockFile late(m_file);
        QVERIFY(!late.lock(false));
        QCOMPARE(session.shown.size(), 3);
    }

    void aLockFileThatNeverLockedReleasesNothing()
    {
        const FakeSession session;
        common_LockFile holder(m_file);
        QVERIFY(holder.lock(false));
        Pointer(new common_LockFile(m_file)).reset();
        common_LockFile late(m_file);
        QVERIFY(!late.lock(false));
    }

    void lockingTwiceRefusesTheSecondTime()
    {
        const FakeSession session;
        common_LockFile lockFile(m_file);
        QVERIFY(lockFile.lock(false));
        QVERIFY(!lockFile.lock(true));
        QCOMPARE(session.shown.size(), 1);
    }

    void tellsOfAnotherProcessAtOnce()
    {
        const FakeSession session;
        SettingsProcess holder({QStringLiteral("hold"), m_file.filePath()});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        common_LockFile lockFile(m_file);
        const Stopwatch timer;
        QVERIFY(!lockFile.lock(false));
        QVERIFY(timer.elapsed() < 1000);
        QCOMPARE(session.shown.size(), 1);
        QCOMPARE(session.shown.at(0).message->text(),
                 QStringLiteral("The %1 file is locked.").arg(m_file.absoluteFilePath()));
    }

    void takesTheLockOfAKilledProcess()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_file.filePath()});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        QVERIFY(holder.killAtOnce());
        common_LockFile lockFile(m_file);
        QVERIFY(lockFile.lock(false));
    }

    // The user must be able to work where no lock can be made.
    void succeedsWhereNoLockCanBeMade()
    {
        QFile obstacle(m_directory->filePath(QStringLiteral("file")));
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        const FakeSession session;
        common_LockFile lockFile(QFileInfo(obstacle.fileName() + QStringLiteral("/kest.ini")));
        QVERIFY(lockFile.lock(false));
        QVERIFY(session.shown.isEmpty());
    }

private:
    std::unique_ptr<QTemporaryDir> m_directory;
    QFileInfo m_file;
};

QTEST_GUILESS_MAIN(tst_common_LockFile)

#include "tst_common_LockFile.moc"
