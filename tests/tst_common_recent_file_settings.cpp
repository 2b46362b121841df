#include <SettingsFolders.h>

#include <common_recent_file_settings.h>

#include <QRegularExpression>
#include <QSettings>
#include <QtTest>

#include <cstdio>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

using RecentFiles = common_recent_file_settings;

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// Adds the last word first, so that the list is as the text has it.
void fill(RecentFiles& recent, const char* text)
{
    const QStringList names = words(text);
    for (auto name = names.crbegin(); name != names.crend(); ++name) {
        recent.addRecentFile(*name);
    }
}

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

class tst_common_recent_file_settings : public QObject
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
        QCOMPARE(recent.recentFiles(), words(qUtf8Printable(before)));
        recent.setMaxRecentFiles(maximum);
        recent.addRecentFile(path);
        QCOMPARE(recent.recentFiles(), words(qUtf8Printable(after)));
    }

    void removesALongerEntryThatContainsTheNewPath()
    {
        RecentFiles recent(QString{});
        fill(recent, "/model.kst.backup /other.kst");
        recent.addRecentFile(QStringLiteral("/model.kst"));
        QCOMPARE(recent.recentFiles(), words("/model.kst /other.kst"));
    }

    void leavesAnExactCopyWhereItStandsBehindALongerEntry()
    {
        RecentFiles recent(QString{});
        fill(recent, "/model.kst.backup /other.kst /model.kst /last.kst");
        recent.addRecentFile(QStringLiteral("/model.kst"));
        QCOMPARE(recent.recentFiles(), words("/other.kst /model.kst /last.kst"));
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
        QCOMPARE(recent.recentFiles(), (QStringList{QString(), QStringLiteral("/b")}));
    }

    void keepsTheEightNewestOfNineNewestFirst()
    {
        RecentFiles recent(QString{});
        for (int i = 1; i <= 9; ++i) {
            recent.addRecentFile(QStringLiteral("/file%1").arg(i));
        }
        QCOMPARE(recent.recentFiles(),
                 words("/file9 /file8 /file7 /file6 /file5 /file4 /file3 /file2"));
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
        QCOMPARE(recent.recentFiles(), words("/a /b /c"));
    }

    void removesTheNewestFile()
    {
        RecentFiles recent(QString{});
        fill(recent, "/a /b");
        recent.removeNewestFile();
        QCOMPARE(recent.recentFiles(), words("/b"));
        recent.removeNewestFile();
        QCOMPARE(recent.recentFiles(), QStringList());
    }

    void assertsThatThereIsANewestFile()
    {
        const QTemporaryDir folder;
        QCOMPARE(Child::lastWords(QStringLiteral("remove"), folder.path()),
                 QStringLiteral("src/settings/recent_file/common_recent_file_settings.cpp (79): "
                                "Assertion failed: !m_recentFiles.isEmpty()\n"));
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
        QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()),
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
        QElapsedTimer timer;
        timer.start();
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
        QCOMPARE(recent.recentFiles(), words("/a"));
    }

    void offersNoInitialFileWhereThereIsNone()
    {
        const SettingsFolders folders;
        RecentFiles recent(folders.userFile());
        recent.readSettings();
        QCOMPARE(recent.recentFiles(), QStringList());
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
        QCOMPARE(copy.recentFiles(), words("/a /b"));
        QCOMPARE(copy.getFileName(), folders.userFile());
        copy.setRecentSession(true);
        copy.writeSettings();
        const QSettings settings(folders.userFile(), QSettings::IniFormat);
        QCOMPARE(settings.value(QStringLiteral("recentFiles/fileList")).toStringList(),
                 words("/a /b"));
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
        QCOMPARE(target.recentFiles(), words("/a /b"));
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
        QCOMPARE(target.recentFiles(), words("/a /b"));
        QCOMPARE(target.getMaxRecentFiles(), 5);
        QCOMPARE(target.getRecentSession(), false);
        QCOMPARE(target.getFileName(), QStringLiteral("target.ini"));
    }

private:
    /// The paths of new files of these names, which blanks or semicolons separate.
    static QStringList existing(const SettingsFolders& folders, const char* names)
    {
        const QString text = QString::fromUtf8(names);
        const QChar separator = QLatin1Char(text.contains(QLatin1Char(';')) ? ';' : ' ');
        QStringList paths;
        const QStringList each = text.split(separator);
        for (const QString& name : each) {
            paths.append(folders.path() + QLatin1Char('/') + name);
            SettingsFolders::write(paths.constLast(), "model");
        }
        return paths;
    }

    static void store(const QString& fileName, const QStringList& paths)
    {
        QSettings settings(fileName, QSettings::IniFormat);
        settings.setValue(QStringLiteral("recentFiles/fileList"), paths);
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        doDeed(Child::deed());
        return 0;
    }
    tst_common_recent_file_settings test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_recent_file_settings.moc"
