// SPDX-License-Identifier: MIT
#include "LockedFile.h"

#include <Stopwatch.h>

#include <SamePath.h>

#include <QDir>
#include <QtTest>

/// Lock files that other programs look at, and names that mean the same file.
class tst_KEST_binfiles_in_use : public QObject, protected LockStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void aReaderDoesNotDelayTheReleaseNorPreventTheNextLock()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), int(KEST_BINFILES_LOCK_TAKEN));
        QFile reader(m_lock);
        QVERIFY(reader.open(QIODevice::ReadOnly));
        const Stopwatch timer;
        QCOMPARE(unlock(m_file, handle), 0);
        QVERIFY(timer.elapsed() < 100);
        QCOMPARE(lock(m_file, &handle), int(KEST_BINFILES_LOCK_TAKEN));
        QCOMPARE(unlock(m_file, handle), 0);
        QCOMPARE(statusOfOtherProcess(m_file), QStringLiteral("status 0"));
        reader.close();
        QCOMPARE(lock(m_file, &handle), int(KEST_BINFILES_LOCK_TAKEN));
        QCOMPARE(unlock(m_file, handle), 0);
        QVERIFY(!QFile::exists(m_lock));
    }

    void aReaderSeesTheOwner()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), int(KEST_BINFILES_LOCK_TAKEN));
        QFile reader(m_lock);
        QVERIFY(reader.open(QIODevice::ReadOnly));
        QCOMPARE(reader.readLine().trimmed().toLongLong(), QCoreApplication::applicationPid());
        reader.close();
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void namesThatMeanTheSameFileMeanTheSameLock()
    {
        const QString other = QFileInfo(m_file).dir().filePath(QStringLiteral("KEST.INI"));
        const bool areSame = SamePath::areEqual(m_file, other);
        uint64_t handle = 0;
        uint64_t second = untouched;
        QCOMPARE(lock(m_file, &handle), int(KEST_BINFILES_LOCK_TAKEN));
        QCOMPARE(lock(other, &second), areSame ? int(KEST_BINFILES_LOCKED_BY_THIS_PROCESS)
                                               : int(KEST_BINFILES_LOCK_TAKEN));
        QCOMPARE(second == untouched, areSame);
        QCOMPARE(unlock(areSame ? other : m_file, handle), 0);
        if (!areSame) {
            QCOMPARE(unlock(other, second), 0);
        }
    }

    void anotherProcessGetsTheLockOfAKilledOne()
    {
        SettingsProcess holder({QStringLiteral("hold"), m_file});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        uint64_t handle = untouched;
        QCOMPARE(lock(m_file, &handle), int(KEST_BINFILES_LOCKED_BY_OTHER_PROCESS));
        QVERIFY(holder.killAtOnce());
        QCOMPARE(lock(m_file, &handle), int(KEST_BINFILES_LOCK_TAKEN));
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void worksForPathsOfAnyCharactersAndLengths_data()
    {
        QTest::addColumn<QString>("name");
        // clang-format off
        QTest::newRow("blank")          << "a b/kest.ini";
        QTest::newRow("umlaut")         << QStringLiteral("Läufe/ä.ini");
        QTest::newRow("other scripts")  << QStringLiteral("漢字/Ω.ini");
        QTest::newRow("beyond 16 bits") << QStringLiteral("📡/📶.ini");
        QTest::newRow("long")           << QStringLiteral("a long name of a folder/").repeated(22) + QLatin1String("kest.ini");
        // clang-format on
    }

    void worksForPathsOfAnyCharactersAndLengths()
    {
        QFETCH(QString, name);
        const QString file = m_directory->filePath(name);
        uint64_t handle = 0;
        QCOMPARE(lock(file, &handle), int(KEST_BINFILES_LOCK_TAKEN));
        QVERIFY(QFile::exists(file + QLatin1String(lockSuffix)));
        QCOMPARE(statusOfOtherProcess(file),
                 QStringLiteral("status %1").arg(int(KEST_BINFILES_LOCKED_BY_OTHER_PROCESS)));
        QCOMPARE(unlock(file, handle), 0);
        QVERIFY(!QFile::exists(file + QLatin1String(lockSuffix)));
    }
};

QTEST_GUILESS_MAIN(tst_KEST_binfiles_in_use)
#include "tst_KEST_binfiles_in_use.moc"
