// SPDX-License-Identifier: MIT
#include <FakeServices.h>

#include <KEST_binfiles.h>
#include <common_ActivePtr.h>
#include <common_LockFile.h>

#include <QDir>
#include <QtTest>

#include <string>

namespace {

/// What the lock functions below were asked and what they answer.
struct LockFunctions
{
    struct Removal
    {
        QString path;
        uint64_t handle;
    };

    int status = 0;
    uint64_t handle = 0;
    QStringList lockedPaths;
    QVector<int> options;
    QVector<Removal> removals;
};

LockFunctions& functions()
{
    static LockFunctions instance;
    return instance;
}

const QString file = QStringLiteral("/no/such folder/kest.ini");

} // namespace

// In place of the binary-file library's: the program's own come first.
extern "C" {

KEST_BINFILES_EXPORT int KEST_binfiles_set_lock_hard(const wchar_t* path, int option,
                                                     uint64_t* handle)
{
    functions().lockedPaths.append(QString::fromWCharArray(path));
    functions().options.append(option);
    *handle = functions().handle;
    return functions().status;
}

KEST_BINFILES_EXPORT int KEST_binfiles_remove_lock(const wchar_t* path, uint64_t handle)
{
    functions().removals.append({QString::fromWCharArray(path), handle});
    return 0;
}
}

/// What common_LockFile makes of each answer of the lock functions.
class tst_common_LockFileStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { functions() = LockFunctions(); }

    void asksNothingUntilItIsToLock()
    {
        {
            const common_LockFile lockFile((QFileInfo(file)));
            QCOMPARE(lockFile.fileInfo(), QFileInfo(file));
            QCOMPARE(lockFile.getRefCount(), 0);
        }
        QVERIFY(functions().lockedPaths.isEmpty());
        QVERIFY(functions().removals.isEmpty());
    }

    void everyStatusButTwoMeansSuccess_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("success");
        // clang-format off
        QTest::newRow("taken")                << 0           << true;
        QTest::newRow("held by another")      << 1           << false;
        QTest::newRow("held by this process") << 2           << false;
        QTest::newRow("not made")             << 3           << true;
        QTest::newRow("unknown")              << 4711        << true;
        QTest::newRow("negative")             << -1          << true;
        QTest::newRow("very negative")        << INT_MIN     << true;
        // clang-format on
    }

    void everyStatusButTwoMeansSuccess()
    {
        QFETCH(int, status);
        QFETCH(bool, success);
        const FakeSession session;
        for (const bool keepHandle : {false, true}) {
            functions().status = status;
            common_LockFile lockFile((QFileInfo(file)));
            QCOMPARE(lockFile.lock(keepHandle), success);
        }
        QCOMPARE(session.shown.size(), success ? 0 : 2);
    }

    void passesTheAbsolutePathAndOptionZero()
    {
        functions().handle = 7;
        {
            common_LockFile lockFile(QFileInfo(QStringLiteral("kest.ini")));
            QVERIFY(lockFile.lock(false));
        }
        const QString absolute = QDir::current().absoluteFilePath(QStringLiteral("kest.ini"));
        QCOMPARE(functions().lockedPaths, QStringList(absolute));
        QCOMPARE(functions().options, QVector<int>{0});
        QCOMPARE(functions().removals.size(), 1);
        QCOMPARE(functions().removals.at(0).path, absolute);
    }

    void passesEveryCharacter()
    {
        const QString name = QString::fromUtf8("/\xc3\xa4 \xe6\xbc\xa2/\xf0\x9f\x94\x92.ini");
        common_LockFile lockFile((QFileInfo(name)));
        QVERIFY(lockFile.lock(false));
        QCOMPARE(functions().lockedPaths, QStringList(name));
    }

    void aTakenLockIsRemovedOnce()
    {
        functions().handle = 7;
        {
            common_LockFile lockFile((QFileInfo(file)));
            QVERIFY(lockFile.lock(false));
            QVERIFY(functions().removals.isEmpty());
        }
        QCOMPARE(functions().removals.size(), 1);
        QCOMPARE(functions().removals.at(0).path, file);
        QCOMPARE(functions().removals.at(0).handle, uint64_t(7));
    }

    void everyBitOfTheHandleComesBack()
    {
        functions().handle = 0xfedcba9876543210U;
        {
            common_LockFile lockFile((QFileInfo(file)));
            QVERIFY(lockFile.lock(false));
        }
        QCOMPARE(functions().removals.at(0).handle, uint64_t(0xfedcba9876543210U));
    }

    void nothingIsRemovedWithoutAHandle()
    {
        {
            common_LockFile lockFile((QFileInfo(file)));
            QVERIFY(lockFile.lock(false));
        }
        QVERIFY(functions().removals.isEmpty());
    }

    void aRefusedLockKeepsItsHandleOnlyOnDemand_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("keepHandle");
        QTest::addColumn<quint64>("handle");
        QTest::addColumn<int>("removals");
        // clang-format off
        QTest::newRow("another's, dropped")          << 1 << false << quint64(7) << 0;
        QTest::newRow("another's, kept")             << 1 << true  << quint64(7) << 1;
        QTest::newRow("another's, kept, but none")   << 1 << true  << quint64(0) << 0;
        QTest::newRow("this process's, dropped")     << 2 << false << quint64(7) << 0;
        QTest::newRow("this process's, kept")        << 2 << true  << quint64(7) << 1;
        // clang-format on
    }

    void aRefusedLockKeepsItsHandleOnlyOnDemand()
    {
        QFETCH(int, status);
        QFETCH(bool, keepHandle);
        QFETCH(quint64, handle);
        QFETCH(int, removals);
        const FakeSession session;
        functions().status = status;
        functions().handle = handle;
        {
            common_LockFile lockFile((QFileInfo(file)));
            QVERIFY(!lockFile.lock(keepHandle));
        }
        QCOMPARE(functions().removals.size(), removals);
        for (const LockFunctions::Removal& removal : qAsConst(functions().removals)) {
            QCOMPARE(removal.path, file);
            QCOMPARE(removal.handle, handle);
        }
    }

    void tellsTheUserThatTheFileIsLocked_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("name");
        // clang-format off
        QTest::newRow("another's")      << 1 << file;
        QTest::newRow("this process's") << 2 << file;
        QTest::newRow("relative")       << 1 << QStringLiteral("kest.ini");
        QTest::newRow("place markers")  << 1 << QStringLiteral("/a %1 %2 <b>/kest.ini");
        // clang-format on
    }

    void tellsTheUserThatTheFileIsLocked()
    {
        QFETCH(int, status);
        QFETCH(QString, name);
        const FakeSession session;
        functions().status = status;
        common_LockFile lockFile((QFileInfo(name)));
        QVERIFY(!lockFile.lock(false));
        QCOMPARE(session.shown.size(), 1);
        const FakeSession::Shown& shown = session.shown.at(0);
        QCOMPARE(shown.message->text(), QStringLiteral("The ") +
                                            QDir::current().absoluteFilePath(name) +
                                            QStringLiteral(" file is locked."));
        QCOMPARE(shown.message->code(), QStringLiteral("17331"));
        QCOMPARE(shown.message->type(), common_UserMessage::Warning);
        QCOMPARE(int(shown.message->type()), 1);
        QCOMPARE(shown.message->format(), common_UserMessage::PlainText);
        QCOMPARE(int(shown.message->format()), 0);
        QCOMPARE(shown.parent, nullptr);
        QCOMPARE(shown.message->getRefCount(), 1);
    }

    void copiesShareTheHandleAndEachRemovesIt()
    {
        functions().handle = 7;
        {
            common_LockFile lockFile((QFileInfo(file)));
            QVERIFY(lockFile.lock(false));
            {
                // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): copies are tested
                const common_LockFile copy(lockFile);
                QCOMPARE(copy.fileInfo(), QFileInfo(file));
            }
            QCOMPARE(functions().removals.size(), 1);
        }
        QCOMPARE(functions().removals.size(), 2);
        QCOMPARE(functions().removals.at(0).handle, uint64_t(7));
        QCOMPARE(functions().removals.at(1).handle, uint64_t(7));
    }

    void assignmentTakesCountFileAndHandle()
    {
        functions().handle = 7;
        {
            common_LockFile lockFile((QFileInfo(file)));
            QVERIFY(lockFile.lock(false));
            lockFile.reference();
            common_LockFile other(QFileInfo(QStringLiteral("/other.ini")));
            other = lockFile;
            QCOMPARE(other.getRefCount(), 1);
            QCOMPARE(other.fileInfo(), QFileInfo(file));
            other.dereference();
            QCOMPARE(lockFile.getRefCount(), 1);
        }
        QCOMPARE(functions().removals.size(), 2);
        QCOMPARE(functions().removals.at(0).path, file);
    }

    void copiesTakeTheCountOfTheMoment()
    {
        common_LockFile lockFile((QFileInfo(file)));
        lockFile.reference();
        lockFile.reference();
        common_LockFile copy(lockFile);
        QCOMPARE(copy.getRefCount(), 2);
        copy.dereference();
        QCOMPARE(copy.getRefCount(), 1);
        QCOMPARE(lockFile.getRefCount(), 2);
    }

    void theLastPointerRemovesTheLock()
    {
        functions().handle = 7;
        common_ActivePtr<common_LockFile> first(new common_LockFile(QFileInfo(file)));
        QVERIFY(first->lock(false));
        common_ActivePtr<common_LockFile> second = first;
        QCOMPARE(second->getRefCount(), 2);
        first.reset();
        QVERIFY(functions().removals.isEmpty());
        second.reset();
        QCOMPARE(functions().removals.size(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_common_LockFileStatus)

#include "tst_common_LockFileStatus.moc"
