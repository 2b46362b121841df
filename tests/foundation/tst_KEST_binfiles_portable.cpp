// SPDX-License-Identifier: MIT
#include <SettingsProcess.h>
#include <Stopwatch.h>

#include <KEST_binfiles.h>

#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <memory>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

constexpr qint64 atOnce = 1000; // milliseconds

int lock(const QString& file, uint64_t* handle)
{
    return KEST_binfiles_set_lock_hard(file.toStdWString().c_str(), 0, handle);
}

int unlock(const QString& file, uint64_t handle)
{
    return KEST_binfiles_remove_lock(file.toStdWString().c_str(), handle);
}

bool write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

void makeOld(const QString& file)
{
    const timespec times[] = {{1, 0}, {1, 0}};
    ::utimensat(AT_FDCWD, QFile::encodeName(file).constData(), times, 0);
}

QByteArray ownerHere(qint64 process, const QString& program)
{
    return QByteArray::number(process) + '\n' + program.toUtf8() + '\n' +
           QSysInfo::machineHostName().toUtf8() + '\n';
}

QString ownProgram()
{
    return QFileInfo(QCoreApplication::applicationFilePath()).fileName();
}

} // namespace

// In place of the system's: the program's own come first. As on a file system without locks.
extern "C" Q_DECL_EXPORT int flock(int /*file*/, int /*operation*/) noexcept
{
    errno = ENOLCK;
    return -1;
}

/// The lock functions where the file system knows no locks that end with their process.
class tst_KEST_binfiles_portable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        m_file = m_directory->filePath(QStringLiteral("kest.ini"));
        m_lock = m_file + QStringLiteral(".kestlock");
    }

    void takesALockOnceAndLeavesNothing()
    {
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QVERIFY(QFile::exists(m_lock));
        uint64_t second = 0;
        QCOMPARE(lock(m_file, &second), 2);
        char host[300] = "";
        QCOMPARE(KEST_binfiles_lock_owner(m_file.toStdWString().c_str(), host, sizeof host),
                 QCoreApplication::applicationPid());
        QCOMPARE(unlock(m_file, handle), 0);
        QVERIFY(QDir(m_directory->path()).isEmpty());
    }

    void refusesALockOfALivingProcess()
    {
        SettingsProcess living(
            {QStringLiteral("hold"), m_directory->filePath(QStringLiteral("x"))});
        QCOMPARE(living.said(), QStringLiteral("status 0"));
        QVERIFY(
            write(m_lock, ownerHere(living.processId(), QStringLiteral("kest_settings_process"))));
        makeOld(m_lock);
        uint64_t handle = 0;
        const Stopwatch timer;
        QCOMPARE(lock(m_file, &handle), 1);
        QVERIFY(timer.elapsed() < atOnce);
        QVERIFY(living.killAtOnce());
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void takesOverWhatADeadProcessLeft_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("cut") << QByteArray("12");
        QTest::newRow("of a dead process") << ownerHere(4194303, ownProgram());
        QTest::newRow("process id reused")
            << ownerHere(QCoreApplication::applicationPid(), QStringLiteral("kestdesk"));
        QTest::newRow("more than an owner") << QByteArray(100000, 'x');
    }

    void takesOverWhatADeadProcessLeft()
    {
        QFETCH(QByteArray, content);
        QVERIFY(write(m_lock, content));
        uint64_t handle = 0;
        const Stopwatch timer;
        QCOMPARE(lock(m_file, &handle), 0);
        QVERIFY(timer.elapsed() < 2 * atOnce);
        QCOMPARE(unlock(m_file, handle), 0);
    }

    void isNotHeldUpByATakeoverThatWasKilled()
    {
        QVERIFY(write(m_lock, ownerHere(4194303, ownProgram())));
        const QString takeover = m_lock + QStringLiteral(".takeover");
        QVERIFY(write(takeover, QByteArray()));
        makeOld(takeover);
        uint64_t handle = 0;
        QCOMPARE(lock(m_file, &handle), 0);
        QCOMPARE(unlock(m_file, handle), 0);
        QVERIFY(QDir(m_directory->path()).isEmpty());
    }

    void refusesALockOfAnotherHost()
    {
        QVERIFY(write(m_lock, "1\nkestdesk\nelsewhere\n"));
        makeOld(m_lock);
        uint64_t handle = 7;
        QCOMPARE(lock(m_file, &handle), 1);
        QCOMPARE(handle, uint64_t(7));
        KEST_binfiles_remove_left_lock(m_file.toStdWString().c_str(), 60000);
        QVERIFY(!QFile::exists(m_lock));
    }

private:
    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_file;
    QString m_lock;
};

QTEST_GUILESS_MAIN(tst_KEST_binfiles_portable)

#include "tst_KEST_binfiles_portable.moc"
