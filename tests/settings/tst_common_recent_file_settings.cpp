// SPDX-License-Identifier: MIT
#include "RecentFileStage.h"

#include <SettingsFolders.h>

#include <QSettings>
#include <QtTest>

class tst_common_recent_file_settings : public QObject, protected RecentFileStage
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirstAndKeepsEight()
    {
        const RecentFiles recent(QStringLiteral("x.ini"));
        QCOMPARE(recent.recentFiles(), QStringList());
        QCOMPARE(recent.getMaxRecentFiles(), 8);
        QCOMPARE(recent.getFileName(), QStringLiteral("x.ini"));
    }

    void addsInFront_data()
    {
        QTest::addColumn<int>("maximum");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("after");
        // clang-format off
        const auto row = [](const char* name, int maximum, const char* before, const char* path, const char* after) {
            QTest::newRow(name) << maximum << QString::fromUtf8(before) << QString::fromUtf8(path) << QString::fromUtf8(after);
        };
        row("first",                                    8, "",                          "/a",   "/a");
        row("second",                                   8, "/a",                        "/b",   "/b /a");
        row("third entry again",                        8, "/a /b /c /d",               "/c",   "/c /a /b /d");
        row("first entry again",                        8, "/a /b",                     "/a",   "/a /b");
        row("last entry again",                         8, "/a /b",                     "/b",   "/b /a");
        row("eighth",                                   8, "/1 /2 /3 /4 /5 /6 /7",      "/8",   "/8 /1 /2 /3 /4 /5 /6 /7");
        row("ninth",                                    8, "/1 /2 /3 /4 /5 /6 /7 /8",   "/9",   "/9 /1 /2 /3 /4 /5 /6 /7");
        row("entry of a full list again",               8, "/1 /2 /3 /4 /5 /6 /7 /8",   "/8",   "/8 /1 /2 /3 /4 /5 /6 /7");
        row("longer entry goes",                        8, "/x /a.bak /y",              "/a",   "/a /x /y");
        row("only the first longer entry goes",         8, "/a.1 /x /a.2",              "/a",   "/a /x /a.2");
        row("longer entry of a full list goes",         3, "/x /a.bak /y",              "/a",   "/a /x /y");
        row("entry in another folder goes",             8, "/x/a.kst /y",               "a.kst", "a.kst /y");
        row("shorter entry stays",                      8, "/a",                        "/a.bak", "/a.bak /a");
        row("entry in other case stays",                8, "/A",                        "/a",   "/a /A");
        row("longer entry in other case stays",         8, "/A.bak",                    "/a",   "/a /A.bak");
        row("exact copy further down stays",            8, "/a.bak /x /a",              "/a",   "/x /a");
        row("pattern characters are characters",        8, "/a1 /[a] /a*",              "/a*",  "/a* /a1 /[a]");
        row("other scripts",                            8, "/\xc3\xa9\xe6\xbc\xa2.kst /b", "/\xc3\xa9\xe6\xbc\xa2", "/\xc3\xa9\xe6\xbc\xa2 /b");
        row("maximum of one",                           1, "/a",                        "/b",   "/b");
        row("more than the maximum loses one only",     2, "/a /b /c /d",               "/e",   "/e /a /b /c");
        row("maximum of none, empty list",              0, "",                          "/a",   "/a");
        row("maximum of none, one entry",               0, "/a",                        "/b",   "/b");
        // clang-format on
    }

    void addsInFront()
    {
        QFETCH(int, maximum);
        QFETCH(QString, before);
        QFETCH(QString, path);
        QFETCH(QString, after);
        RecentFiles recent(QString{});
        recent.setMaxRecentFiles(20);
        fill(recent, qUtf8Printable(before));
        QCOMPARE(recent.recentFiles(), paths(qUtf8Printable(before)));
        recent.setMaxRecentFiles(maximum);
        recent.addRecentFile(path);
        QCOMPARE(recent.recentFiles(), paths(qUtf8Printable(after)));
    }

    void removesALongerEntryThatContainsTheNewPath()
    {
        RecentFiles recent(QString{});
        fill(recent, "/model.kst.backup /other.kst");
        recent.addRecentFile(QStringLiteral("/model.kst"));
        QCOMPARE(recent.recentFiles(), paths("/model.kst /other.kst"));
    }

    void leavesAnExactCopyWhereItStandsBehindALongerEntry()
    {
        RecentFiles recent(QString{});
        fill(recent, "/model.kst.backup /other.kst /model.kst /last.kst");
        recent.addRecentFile(QStringLiteral("/model.kst"));
        QCOMPARE(recent.recentFiles(), paths("/other.kst /model.kst /last.kst"));
    }

    void movesAnExactCopyThatStandsBeforeALongerEntry()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b b.backup");
        store(folders.userFile(), paths);
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        recent.addRecentFile(paths.at(1));
        QCOMPARE(recent.recentFiles(), (QStringList{paths.at(1), paths.at(0), paths.at(2)}));
    }

    void takesTheNewestEntryAwayForAnEmptyPath()
    {
        RecentFiles recent(QString{});
        fill(recent, "/a /b");
        recent.addRecentFile(QString());
        QCOMPARE(recent.recentFiles(), QStringList(QString()) + paths("/b"));
    }

    void keepsTheEightNewestOfNineNewestFirst()
    {
        RecentFiles recent(QString{});
        for (int i = 1; i <= 9; ++i) {
            recent.addRecentFile(QStringLiteral("/file%1").arg(i));
        }
        QCOMPARE(recent.recentFiles(),
                 paths("/file9 /file8 /file7 /file6 /file5 /file4 /file3 /file2"));
    }

    void addsNativeSeparators()
    {
        RecentFiles recent(QString{});
        recent.addRecentFile(QStringLiteral("/a/b/c"));
        QCOMPARE(recent.recentFiles(),
                 QStringList(QDir::toNativeSeparators(QStringLiteral("/a/b/c"))));
    }

    void doesNotCutTheListWhenTheMaximumShrinks()
    {
        RecentFiles recent(QString{});
        fill(recent, "/a /b /c");
        recent.setMaxRecentFiles(1);
        QCOMPARE(recent.getMaxRecentFiles(), 1);
        QCOMPARE(recent.recentFiles(), paths("/a /b /c"));
    }

    void removesTheNewestFile()
    {
        RecentFiles recent(QString{});
        fill(recent, "/a /b");
        recent.removeNewestFile();
        QCOMPARE(recent.recentFiles(), paths("/b"));
        recent.removeNewestFile();
        QCOMPARE(recent.recentFiles(), QStringList());
    }

    void keepsListAndSessionInTheFile()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a b.kst;c,d.kst;\xc3\xa9\xe6\xbc\xa2.kst");
        RecentFiles recent(folders.userFile());
        for (auto path = paths.crbegin(); path != paths.crend(); ++path) {
            recent.addRecentFile(*path);
        }
        recent.setRecentSession(true);
        recent.writeSettings();
        const QSettings settings(folders.userFile(), QSettings::IniFormat);
        QStringList keys = settings.allKeys();
        keys.sort();
        QCOMPARE(keys, words("recentFiles/fileList recentFiles/recentSession"));
        QCOMPARE(settings.value(QStringLiteral("recentFiles/fileList")).toStringList(), paths);
        RecentFiles read(folders.userFile());
        read.readSettings();
        QCOMPARE(read.recentFiles(), paths);
        QCOMPARE(read.getRecentSession(), true);
        QCOMPARE(read.getMaxRecentFiles(), 8);
    }

    void keepsListsOfNoneAndOneInTheFile()
    {
        const SettingsFolders folders;
        const QStringList paths = existing(folders, "a");
        RecentFiles recent(folders.userFile());
        recent.setRecentSession(false);
        recent.writeSettings();
        RecentFiles empty(folders.userFile());
        empty.readSettings();
        QCOMPARE(empty.recentFiles(), QStringList());
        QCOMPARE(empty.getRecentSession(), false);
        recent.addRecentFile(paths.at(0));
        recent.writeSettings();
        RecentFiles one(folders.userFile());
        one.readSettings();
        QCOMPARE(one.recentFiles(), paths);
    }

    void doesNotKeepTheMaximumInTheFile()
    {
        const SettingsFolders folders;
        RecentFiles recent(folders.userFile());
        recent.setMaxRecentFiles(3);
        recent.writeSettings();
        RecentFiles read(folders.userFile());
        read.readSettings();
        QCOMPARE(read.getMaxRecentFiles(), 8);
        recent.readSettings();
        QCOMPARE(recent.getMaxRecentFiles(), 3);
    }

    void readsASessionWhereNoneIsStored()
    {
        const SettingsFolders folders;
        RecentFiles recent(folders.userFile());
        recent.setRecentSession(false);
        recent.readSettings();
        QCOMPARE(recent.getRecentSession(), true);
        recent.setRecentSession(false);
        QVERIFY(SettingsFolders::write(folders.userFile(), "[recentFiles]\n"));
        recent.readSettings();
        QCOMPARE(recent.getRecentSession(), true);
        QVERIFY(SettingsFolders::write(folders.userFile(), "[recentFiles]\nrecentSession=false\n"));
        recent.readSettings();
        QCOMPARE(recent.getRecentSession(), false);
    }

    void restoresNoFilesAndNoSession()
    {
        SettingsFolders folders;
        const QStringList paths = existing(folders, "a b");
        store(folders.defaultFile(), paths);
        folders.info.initialFile = paths.at(0);
        RecentFiles recent(folders.userFile());
        fill(recent, "/a /b");
        recent.setRecentSession(true);
        recent.setMaxRecentFiles(3);
        recent.restoreDefaults();
        QCOMPARE(recent.recentFiles(), QStringList());
        QCOMPARE(recent.getRecentSession(), false);
        QCOMPARE(recent.getMaxRecentFiles(), 3);
        QVERIFY(!QFile::exists(folders.userFile()));
    }

    void convertsWhatIsStored_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("session");
        // clang-format off
        QTest::newRow("word")    << QByteArray("[recentFiles]\nrecentSession=word\nfileList=word\n")           << true;
        QTest::newRow("0")       << QByteArray("[recentFiles]\nrecentSession=0\nfileList=\n")                  << false;
        QTest::newRow("list")    << QByteArray("[recentFiles]\nrecentSession=true, true\nfileList=\", \", ,\n") << false;
        QTest::newRow("variant") << QByteArray("[recentFiles]\nrecentSession=@Invalid()\nfileList=@Variant(garbage)\n") << false;
        // clang-format on
    }

    void convertsWhatIsStored()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, session);
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), content));
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), QStringList());
        QCOMPARE(recent.getRecentSession(), session);
    }

    void copiesFileAndListButNotTheMaximumWhenConstructed()
    {
        const SettingsFolders folders;
        RecentFiles recent(folders.userFile());
        fill(recent, "/a /b");
        recent.setMaxRecentFiles(3);
        RecentFiles copy(recent);
        QCOMPARE(copy.getMaxRecentFiles(), 8);
        QCOMPARE(copy.recentFiles(), paths("/a /b"));
        QCOMPARE(copy.getFileName(), folders.userFile());
        copy.setRecentSession(true);
        copy.writeSettings();
        const QSettings settings(folders.userFile(), QSettings::IniFormat);
        QCOMPARE(settings.value(QStringLiteral("recentFiles/fileList")).toStringList(),
                 paths("/a /b"));
    }

    void copiesEverythingWhenAssigned()
    {
        const SettingsFolders folders;
        RecentFiles recent(folders.userFile());
        fill(recent, "/a /b");
        recent.setMaxRecentFiles(3);
        recent.setRecentSession(true);
        RecentFiles target(folders.path() + QStringLiteral("/other.ini"));
        target.setRecentSession(false);
        fill(target, "/c");
        target = recent;
        QCOMPARE(target.getMaxRecentFiles(), 3);
        QCOMPARE(target.getRecentSession(), true);
        QCOMPARE(target.recentFiles(), paths("/a /b"));
        QCOMPARE(target.getFileName(), folders.userFile());
        target.writeSettings();
        QVERIFY(SettingsFolders::read(folders.userFile()).startsWith("[recentFiles]\n"));
    }

    void copiesTheListOnly()
    {
        RecentFiles source(QStringLiteral("source.ini"));
        fill(source, "/a /b");
        source.setMaxRecentFiles(3);
        source.setRecentSession(true);
        RecentFiles target(QStringLiteral("target.ini"));
        target.setMaxRecentFiles(5);
        target.setRecentSession(false);
        fill(target, "/c");
        target.copy(source);
        QCOMPARE(target.recentFiles(), paths("/a /b"));
        QCOMPARE(target.getMaxRecentFiles(), 5);
        QCOMPARE(target.getRecentSession(), false);
        QCOMPARE(target.getFileName(), QStringLiteral("target.ini"));
    }
};

QTEST_GUILESS_MAIN(tst_common_recent_file_settings)
#include "tst_common_recent_file_settings.moc"
