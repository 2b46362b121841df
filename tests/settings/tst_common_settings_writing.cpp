// SPDX-License-Identifier: MIT
#include "ScriptedSettings.h"

#include <FakeServices.h>
#include <FileSizeLimit.h>
#include <SettingsObjects.h>
#include <SettingsProcess.h>
#include <Stopwatch.h>
#include <Unprivileged.h>

#include <common_LockFile.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

class tst_common_settings_writing : public QObject, protected SettingsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void leavesTheFileAsItWasOnAFullDisk_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("length");
        const QByteArray small = "[texts]\ntext=old\n";
        const QByteArray large = "[texts]\ntext=" + QByteArray(60000, 'o') + '\n';
        // clang-format off
        QTest::newRow("no room at all")                << small << 0     << 10;
        QTest::newRow("one byte")                      << small << 1     << 10;
        QTest::newRow("up to the group")               << small << 8     << 10;
        QTest::newRow("up to the key")                 << small << 10    << 10;
        QTest::newRow("up to the value")               << small << 13    << 10;
        QTest::newRow("half the value")                << small << 18    << 10;
        QTest::newRow("all but the line end")          << small << 23    << 10;
        QTest::newRow("one block of a long value")     << small << 4096  << 60000;
        QTest::newRow("two blocks of a long value")    << small << 8192  << 60000;
        QTest::newRow("long before")                   << large << 100   << 60000;
        QTest::newRow("long before, short after")      << large << 8     << 10;
        // clang-format on
    }

    void leavesTheFileAsItWasOnAFullDisk()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        QFETCH(QByteArray, before);
        QFETCH(int, limit);
        QFETCH(int, length);
        QVERIFY(write(m_file, before));
        SettingsProcess writer({QStringLiteral("write-limited"), m_file, QString::number(limit),
                                QString::number(length)});
        QVERIFY(writer.hasEndedWell());
        QCOMPARE(contentOf(m_file), before);
        const QString log = QString::fromUtf8(writer.readAllStandardError());
        QCOMPARE(log.count(QLatin1Char('\n')), 1);
        QVERIFY2(log.contains(m_file), qPrintable(log));
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("kest.ini")));
    }

    void writesWhatJustFits()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        SettingsProcess writer({QStringLiteral("write-limited"), m_file, QStringLiteral("60014"),
                                QStringLiteral("60000")});
        QVERIFY(writer.hasEndedWell());
        QCOMPARE(writer.readAllStandardError(), QByteArray());
        QCOMPARE(textIn(m_file).size(), 60000);
    }

    void anUnusableTemporaryFolderIsNoObstacle_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("missing") << QStringLiteral("missing");
        QTest::newRow("a file") << QStringLiteral("obstacle");
        QTest::newRow("a device") << QStringLiteral("/dev/null");
    }

    void anUnusableTemporaryFolderIsNoObstacle()
    {
        QFETCH(QString, folder);
        const QByteArray before = qgetenv("TMPDIR");
        QVERIFY(write(path("obstacle"), "x"));
        QVERIFY(qputenv("TMPDIR", QFile::encodeName(QDir(m_directory->path()).filePath(folder))));
        const LogCatcher log;
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
        // a repaired copy is needed for this one
        QVERIFY(write(m_file, QByteArray("[open\n").repeated(2000) + "[texts]\ntext=good\n"));
        QCOMPARE(textIn(m_file), QStringLiteral("good"));
        qputenv("TMPDIR", before);
        QCOMPARE(LogCatcher::lines().size(), 1); // that it is damaged
        QCOMPARE(QDir(m_directory->path())
                     .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                     .size(),
                 4);
    }

    void saysOnceWhyAFileWasNotWritten_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a file in place of the folder") << QStringLiteral("obstacle/kest.ini");
        QTest::newRow("a file in place of a folder above") << QStringLiteral("obstacle/a/kest.ini");
        QTest::newRow("a folder in place of the file") << QStringLiteral("folder");
        QTest::newRow("name too long") << QString(300, QLatin1Char('x'));
    }

    void saysOnceWhyAFileWasNotWritten()
    {
        QFETCH(QString, name);
        QVERIFY(write(path("obstacle"), "x"));
        QVERIFY(QDir(m_directory->path()).mkdir(QStringLiteral("folder")));
        const QString file = m_directory->filePath(name);
        const LogCatcher log;
        TextSettings settings(file);
        settings.text = QStringLiteral("mine");
        const Stopwatch timer;
        settings.writeSettings();
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(settings.text, QStringLiteral("mine"));
        QCOMPARE(LogCatcher::lines().size(), 1);
        QVERIFY(LogCatcher::lines().constFirst().startsWith(QStringLiteral("warning: ")));
        QVERIFY(LogCatcher::lines().constFirst().contains(file));
        QCOMPARE(contentOf(path("obstacle")), QByteArray("x"));
        QVERIFY(QDir(path("folder")).isEmpty());
    }

    void keepsTheValuesThatItMayNotWrite_data()
    {
        QTest::addColumn<int>("fileMode");
        QTest::addColumn<int>("folderMode");
        QTest::newRow("read-only file") << 0444 << 0777;
        QTest::newRow("file in a read-only folder") << 0666 << 0555;
        QTest::newRow("no file yet in a read-only folder") << 0 << 0555;
    }

    void keepsTheValuesThatItMayNotWrite()
    {
        SKIP_WITHOUT_OTHER_USERS();
        QFETCH(int, fileMode);
        QFETCH(int, folderMode);
        const QByteArray before("[texts]\ntext=old\n");
        if (fileMode != 0) {
            QVERIFY(write(m_file, before) && Unprivileged::give(m_file));
            QCOMPARE(::chmod(QFile::encodeName(m_file).constData(), mode_t(fileMode)), 0);
        }
        const QTemporaryDir temporary;
        QVERIFY(Unprivileged::give(temporary.path()) && Unprivileged::give(m_directory->path()));
        const QByteArray usual = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(temporary.path()));
        const QByteArray folder = QFile::encodeName(m_directory->path());
        QCOMPARE(::chmod(folder.constData(), mode_t(folderMode)), 0);
        const auto restored = qScopeGuard([&] {
            ::chmod(folder.constData(), 0700);
            qputenv("TMPDIR", usual);
        });
        const LogCatcher log;
        TextSettings settings(m_file);
        settings.text = QStringLiteral("mine");
        {
            const Unprivileged user; // an administrator may write everywhere
            const Stopwatch timer;
            settings.writeSettings();
            QVERIFY(timer.elapsed() < atOnce);
        }
        QCOMPARE(settings.text, QStringLiteral("mine"));
        QCOMPARE(LogCatcher::lines().size(), 1);
        QVERIFY2(LogCatcher::lines().constFirst().startsWith(QStringLiteral("warning: ")) &&
                     LogCatcher::lines().constFirst().contains(m_file),
                 qPrintable(LogCatcher::lines().constFirst()));
        QCOMPARE(contentOf(m_file), fileMode == 0 ? QByteArray("no such file") : before);
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden).size(),
                 fileMode == 0 ? 0 : 1);
    }

    void isNotDelayedByWhatAKilledProcessLeft_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("age"); // seconds
        // clang-format off
        QTest::newRow("QSettings's lock, empty")           << QStringLiteral(".lock") << QByteArray() << 0;
        QTest::newRow("QSettings's lock, of another host") << QStringLiteral(".lock") << QByteArray("1\nx\nelsewhere\n") << 0;
        QTest::newRow("guard, empty")                      << QStringLiteral(".write.kestlock") << QByteArray() << 0;
        QTest::newRow("guard, of another host")            << QStringLiteral(".write.kestlock") << QByteArray("1\nx\nelsewhere\n") << 10;
        QTest::newRow("guard, id reused")                  << QStringLiteral(".write.kestlock") << QByteArray("1\nx\n") << 0;
        // clang-format on
    }

    void isNotDelayedByWhatAKilledProcessLeft()
    {
        QFETCH(QString, suffix);
        QFETCH(QByteArray, content);
        QFETCH(int, age);
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        QVERIFY(write(m_file + suffix, content));
        QFile left(m_file + suffix);
        QVERIFY(left.open(QIODevice::ReadWrite));
        QVERIFY(left.setFileTime(QDateTime::currentDateTime().addSecs(-age),
                                 QFileDevice::FileModificationTime));
        left.close();
        const LogCatcher log;
        const Stopwatch timer;
        QCOMPARE(textIn(m_file), QStringLiteral("old"));
        writeText(m_file, QStringLiteral("new"));
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines(), QStringList());
    }

    void writesWhileTheLockIsHeld_data()
    {
        QTest::addColumn<bool>("byAnotherProcess");
        QTest::newRow("by this process") << false;
        QTest::newRow("by another process") << true;
    }

    void writesWhileTheLockIsHeld()
    {
        QFETCH(bool, byAnotherProcess);
        const FakeSession session;
        const QString holderFile = byAnotherProcess ? m_file : path("unrelated.ini");
        SettingsProcess holder({QStringLiteral("hold"), holderFile});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        common_LockFile lockFile((QFileInfo(m_file)));
        QCOMPARE(lockFile.lock(false), !byAnotherProcess);
        const Stopwatch timer;
        writeText(m_file, QStringLiteral("new"));
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void givesUpInTimeWhenSomebodyElseGoesOnWriting()
    {
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        SettingsProcess writer({QStringLiteral("hold"), m_file + QStringLiteral(".write")});
        QCOMPARE(writer.said(), QStringLiteral("status 0"));
        const LogCatcher log;
        const Stopwatch timer;
        writeText(m_file, QStringLiteral("new"));
        QVERIFY(timer.elapsed() < 2 * atOnce);
        QCOMPARE(LogCatcher::lines().size(), 1);
        QVERIFY(LogCatcher::lines().constFirst().contains(m_file));
        QCOMPARE(textIn(m_file), QStringLiteral("old"));
        QVERIFY(writer.killAtOnce());
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }
};

QTEST_GUILESS_MAIN(tst_common_settings_writing)
#include "tst_common_settings_writing.moc"
