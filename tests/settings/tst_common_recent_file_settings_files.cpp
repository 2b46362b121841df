// SPDX-License-Identifier: MIT
#include "RecentFileStage.h"

#include <SettingsFolders.h>
#include <Stopwatch.h>
#include <SystemSkips.h>

#include <common_recent_file_settings.h>

#include <QRegularExpression>
#include <QtTest>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

/// The superuser reads everything, so this stops to be one.
void becomeAnOrdinaryUser()
{
#ifdef Q_OS_UNIX
    if (geteuid() == 0 && setuid(65534) != 0) {
        std::perror("setuid");
    }
#endif
}

void doDeed(const QString& deed)
{
    if (deed == QLatin1String("remove")) {
        RecentFiles(Child::folder()).removeNewestFile();
    } else if (deed == QLatin1String("read without service")) {
        RecentFiles(Child::folder()).readSettings();
    } else if (deed == QLatin1String("read as an ordinary user")) {
        becomeAnOrdinaryUser();
        const FakeApplicationInfo info(Child::folder());
        RecentFiles recent(Child::folder() + QStringLiteral("/kest.ini"));
        recent.readSettings();
        std::puts(qUtf8Printable(recent.recentFiles().join(QLatin1Char('\n'))));
    } else if (deed == QLatin1String("read on a network")) {
        const FakeApplicationInfo info(Child::folder());
        RecentFiles recent(Child::folder() + QStringLiteral("/kest.ini"));
        QElapsedTimer timer;
        timer.start();
        recent.readSettings();
        std::printf("%lld ms\n%s\n", timer.elapsed(),
                    qUtf8Printable(recent.recentFiles().join(QLatin1Char('\n'))));
    }
}

} // namespace

class tst_common_recent_file_settings_files : public QObject, protected RecentFileStage
{
    Q_OBJECT

private Q_SLOTS:
    void assertsThatThereIsANewestFile()
    {
        const QTemporaryDir folder;
        QCOMPARE(Child::lastWords(QStringLiteral("remove"), folder.path()),
                 QStringLiteral("src/settings/recent_file/common_recent_file_settings.cpp (79): "
                                "Assertion failed: !m_recentFiles.isEmpty()\n"));
    }

    void readsTheInstallationsDefaultsWithoutAUserFile()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b");
        store(folders.defaultFile(), paths);
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), paths);
    }

    void dropsMissingFiles()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b");
        store(folders.userFile(),
              {paths.at(0), folders.path() + QStringLiteral("/missing"), QString(),
               folders.path() + QStringLiteral("/a/b"), paths.at(1)});
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), paths);
    }

    void dropsFilesThatTheUserMayNotRead()
    {
#ifdef Q_OS_WIN
        QSKIP("Windows knows no such permissions");
#endif
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b c");
        store(folders.userFile(), paths);
        const auto all = QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner | QFile::ReadGroup |
                         QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
        QVERIFY(QFile::setPermissions(folders.path(), all));
        QVERIFY(QFile::setPermissions(folders.info.userSettings, all));
        QVERIFY(QFile::setPermissions(paths.at(1), QFile::WriteOwner));
        QProcess process;
        Child::start(process, QStringLiteral("read as an ordinary user"),
                     folders.info.userSettings);
        QVERIFY(process.waitForFinished());
        QCOMPARE(QString::fromUtf8(unixLines(process.readAllStandardOutput())),
                 paths.at(0) + QLatin1Char('\n') + paths.at(2) + QLatin1Char('\n'));
        QCOMPARE(process.readAllStandardError(), QByteArray());
    }

    void assertsThatTheInitialFileIsKnown()
    {
        const QTemporaryDir folder;
        const QString settings = folder.filePath(QStringLiteral("x.ini"));
        QVERIFY(SettingsFolders::write(settings, ""));
        const QString words = Child::lastWords(QStringLiteral("read without service"), settings);
        const QRegularExpression expected(QStringLiteral(
            "^src/settings/recent_file/common_recent_file_settings\\.cpp \\(\\d+\\): "
            "Assertion failed: common_IApplicationInfo\n$"));
        QVERIFY2(expected.match(words).hasMatch(), qPrintable(words));
    }

    // They are kept: the network may be there tomorrow.
    void waitsALittleForFilesThatDoNotAnswer()
    {
        SKIP_WITHOUT_SILENT_FILES();
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b");
        const QString silent = folders.path() + QStringLiteral("/silent/");
        const QStringList stored = {silent + QLatin1Char('1'), paths.at(0),
                                    silent + QLatin1Char('2'),
                                    folders.path() + QStringLiteral("/missing"), paths.at(1)};
        store(folders.userFile(), stored);
        qputenv("LD_PRELOAD", KEST_SILENT_FILES);
        QProcess process;
        Child::start(process, QStringLiteral("read on a network"), folders.info.userSettings);
        qunsetenv("LD_PRELOAD");
        QVERIFY(process.waitForFinished());
        QStringList lines =
            QString::fromUtf8(process.readAllStandardOutput()).trimmed().split(QLatin1Char('\n'));
        const int taken = lines.takeFirst().section(QLatin1Char(' '), 0, 0).toInt();
        QVERIFY2(taken >= 900 && taken < 10000, qPrintable(QString::number(taken)));
        QStringList expected = stored;
        expected.removeAt(3);
        QCOMPARE(lines, expected);
    }

    void keepsLinksUnderTheirOwnNamesAndDropsBrokenOnes()
    {
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        const SettingsFolders folders;
        const QString file = existing(folders, "a").at(0);
        const QString link = folders.path() + QStringLiteral("/link");
        const QString broken = folders.path() + QStringLiteral("/broken");
        const QString circle = folders.path() + QStringLiteral("/circle");
        QVERIFY(QFile::link(file, link));
        QVERIFY(QFile::link(folders.path() + QStringLiteral("/missing"), broken));
        QVERIFY(QFile::link(circle, circle));
        store(folders.userFile(), {broken, link, circle, file});
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), (QStringList{link, file}));
    }

    void acceptsEachFileOnceHoweverItIsSpelt()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b");
        const QString folder = folders.path();
        store(folders.userFile(),
              {folder + QStringLiteral("/./a"), folder + QStringLiteral("//a"), paths.at(0),
               folder + QStringLiteral("/missing"), folder + QStringLiteral("/user/../a"),
               QDir::toNativeSeparators(paths.at(0)), paths.at(1)});
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), paths);
    }

    void makesPathsAbsolute()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a");
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folders.path()));
        store(folders.userFile(), {QStringLiteral("a")});
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(recent.recentFiles(), paths);
    }

    void acceptsAtMostTheMaximumInOneRead()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "0 1 2 3 4 5 6 7 8 9");
        QStringList stored = paths;
        stored.insert(2, folders.path() + QStringLiteral("/missing"));
        stored.insert(4, paths.at(0));
        store(folders.userFile(), stored);
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), paths.mid(0, 8));
        RecentFiles three(folders.userFile());
        three.setMaxRecentFiles(3);
        three.readSettings();
        QCOMPARE(three.recentFiles(), paths.mid(0, 3));
        RecentFiles none(folders.userFile());
        none.setMaxRecentFiles(0);
        none.readSettings();
        QCOMPARE(none.recentFiles(), QStringList());
    }

    void appendsWhatItReadsToWhatItHas()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b c d");
        store(folders.userFile(), paths.mid(0, 2));
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QVERIFY(QFile::remove(paths.at(0)));
        store(folders.userFile(), {paths.at(3), paths.at(1), paths.at(2)});
        recent.readSettings();
        QCOMPARE(recent.recentFiles(),
                 (QStringList{paths.at(0), paths.at(1), paths.at(3), paths.at(2)}));
    }

    void countsOnlyWhatIsAcceptedInThisRead()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b c d e");
        store(folders.userFile(), paths.mid(0, 2));
        RecentFiles recent(folders.userFile());
        recent.setMaxRecentFiles(2);
        recent.readSettings();
        store(folders.userFile(), paths);
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), paths.mid(0, 4));
    }

    void readsTenThousandEntriesInATimeThatNobodyNotices()
    {
        SKIP_UNDER_WINE("to look for ten thousand files takes twice the time");
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b");
        QStringList stored;
        for (int i = 0; i < 10000; ++i) {
            stored.append(folders.path() + QStringLiteral("/missing%1").arg(i));
        }
        stored.prepend(paths.at(0));
        stored.append(paths.at(1));
        store(folders.userFile(), stored);
        RecentFiles recent(folders.userFile());
        const Stopwatch timer;
        recent.readSettings();
        QVERIFY2(timer.elapsed() < 3000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(recent.recentFiles(), paths);
    }

    void offersTheInitialFileWhenThereIsNoOther()
    {
        SettingsFolders folders;
        const QStringList paths = existing(folders, "initial.kst other.kst");
        folders.info.initialFile = folders.path() + QStringLiteral("/./initial.kst");
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), paths.mid(0, 1));
        store(folders.userFile(), paths.mid(1));
        RecentFiles listed(folders.userFile());
        listed.readSettings();
        QCOMPARE(listed.recentFiles(), paths.mid(1));
        folders.info.initialFile = folders.path() + QStringLiteral("/missing.kst");
        store(folders.userFile(), {folders.path() + QStringLiteral("/gone.kst")});
        RecentFiles none(folders.userFile());
        none.readSettings();
        QCOMPARE(none.recentFiles(), QStringList());
    }

    void offersNoInitialFileBesideAnEntryInMemory()
    {
        SettingsFolders folders;
        const QStringList paths = existing(folders, "initial.kst");
        folders.info.initialFile = paths.at(0);
        RecentFiles recent(folders.userFile());
        fill(recent, "/a");
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), ::paths("/a"));
    }

    void offersNoInitialFileWhereThereIsNone()
    {
        const SettingsFolders folders;
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), QStringList());
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        doDeed(Child::deed());
        return 0;
    }
    tst_common_recent_file_settings_files test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_recent_file_settings_files.moc"
