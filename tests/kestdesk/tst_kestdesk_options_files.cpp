// SPDX-License-Identifier: MIT
#include "OptionsStage.h"

#include "../support/SystemSkips.h"

#include <SpecialFile.h>

// The files and folders behind "kestdesk options ...", usable or not.
class tst_kestdesk_options_files : public QObject, private OptionsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }

    void whatIsNoSettingsFileIsRefusedInTime_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<bool>("isDefaultIni");
        const QPair<const char*, int> kinds[] = {{"a pipe", S_IFIFO},
                                                 {"a socket", S_IFSOCK},
                                                 {"a directory", S_IFDIR},
                                                 {"a device", S_IFCHR}};
        const QStringList commands = {text("list"), text("get FarmOut"), text("values FarmOut"),
                                      text("set FarmOut=true"), text("restore")};
        for (const bool isDefaultIni : {false, true}) {
            for (const auto& kind : kinds) {
                for (const QString& command : commands) {
                    QTest::addRow("%s: %s%s", qPrintable(command), kind.first,
                                  isDefaultIni ? ", default.ini" : "")
                        << kind.second << command.split(QLatin1Char(' ')) << isDefaultIni;
                }
            }
        }
    }

    void whatIsNoSettingsFileIsRefusedInTime()
    {
        QFETCH(int, kind);
        QFETCH(QStringList, words);
        QFETCH(bool, isDefaultIni);
        const QString file =
            isDefaultIni ? m_folder->filePath(text("home/default.ini")) : settingsFile();
        QDir().mkpath(m_folder->filePath(text("user")));
        SPECIAL_FILE_OR_SKIP(kind, file);
        const Result result = options(words);
        QCOMPARE(result.exitCode, 1);
        const QString what =
            text(QTest::currentDataTag()).section(text(": "), 1).section(QLatin1Char(','), 0, 0);
        QVERIFY2(result.errors.startsWith(
                     QStringLiteral("kestdesk: %1 cannot be used: it is %2").arg(file, what)),
                 qPrintable(result.errors));
        QCOMPARE(result.errors.count(QLatin1Char('\n')), 1);
        QCOMPARE(result.output, QString());
        QCOMPARE(SpecialFile::kindOf(file), kind);
        QCOMPARE(QFile::exists(settingsFile()), !isDefaultIni);
    }

    void aDefaultIniThatIsNoFileIsNotNeededByWhoeverHasSettings()
    {
        QCOMPARE(options({text("set"), text("FarmOut=true")}).exitCode, 0);
        SPECIAL_FILE_OR_SKIP(S_IFIFO, m_folder->filePath(text("home/default.ini")));
        QCOMPARE(value("FarmOut"), text("true"));
        QCOMPARE(options({text("set"), text("FarmOut=false")}).exitCode, 0);
        QCOMPARE(options({text("restore")}).exitCode, 1);
        QCOMPARE(value("FarmOut"), text("false"));
    }

    void whatIsNoLockFileIsToldOf_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("pipe") << int(S_IFIFO);
        QTest::newRow("directory") << int(S_IFDIR);
        QTest::newRow("link") << int(S_IFLNK);
    }

    void whatIsNoLockFileIsToldOf()
    {
        QFETCH(int, kind);
        const QString lock = settingsFile() + text(".kestlock");
        QDir().mkpath(m_folder->filePath(text("user")));
        SPECIAL_FILE_OR_SKIP(kind, lock);
        const Result result = options({text("set"), text("FarmOut=true")});
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.errors, QStringLiteral("kestdesk: %1 is no lock file and must be removed; "
                                               "nothing was changed\n")
                                    .arg(lock));
        QCOMPARE(SpecialFile::kindOf(lock), kind);
        QCOMPARE(value("FarmOut"), text("false")); // reading needs no lock
    }

    // Sparse, as a disk error leaves it, and just made.
    void aHugeLockFileIsNoObstacle()
    {
        QDir().mkpath(m_folder->filePath(text("user")));
        QFile lock(settingsFile() + text(".kestlock"));
        QVERIFY(lock.open(QIODevice::WriteOnly));
        QVERIFY(lock.resize(qint64(2) << 30));
        lock.close(); // a program that has it open may be its owner
        const Result result = options({text("set"), text("--wait=0"), text("FarmOut=true")});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QVERIFY(!QFile::exists(lock.fileName()));
    }

    void aFileThatIsTooLargeIsRefused()
    {
        QDir().mkpath(m_folder->filePath(text("user")));
        QFile file(settingsFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.resize(qint64(3) << 30)); // sparse
        for (const char* const command : {"list", "restore"}) {
            const Result result = options({text(command)});
            QCOMPARE(result.exitCode, 1);
            QVERIFY2(result.errors.contains(text("cannot be used: it is larger than 4 MB")),
                     qPrintable(result.errors));
        }
        QCOMPARE(file.size(), qint64(3) << 30);
    }

    void theUsersFolder_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("error"); // empty where it works
        QTest::newRow("missing") << "new/deeper"
                                 << "";
        QTest::newRow("with a blank at its end") << "blank /x "
                                                 << "";
        QTest::newRow("a file") << "file"
                                << "because its folder cannot be made";
        QTest::newRow("below a file") << "file/x"
                                      << "because its folder cannot be made";
    }

    void theUsersFolder()
    {
        QFETCH(QString, folder);
        QFETCH(QString, error);
        QFile file(m_folder->filePath(text("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        m_variables[1] = text("KEST_USER_HOME=") + m_folder->filePath(folder);
        const Result result = options({text("set"), text("FarmOut=true")});
        QVERIFY2(error.isEmpty() ? result.errors.isEmpty() : result.errors.contains(error),
                 qPrintable(result.errors));
        QCOMPARE(result.exitCode, error.isEmpty() ? 0 : 1);
        QCOMPARE(value("FarmOut"), error.isEmpty() ? text("true") : text("false"));
        QCOMPARE(file.size(), 0);
    }

    void aFolderThatIsNoTextIsRefused_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::newRow("user") << "KEST_USER_HOME";
        QTest::newRow("installation") << "KEST_HOME";
    }

    void aFolderThatIsNoTextIsRefused()
    {
        SKIP_WITHOUT_BYTES_IN_ARGUMENTS();
        QFETCH(QString, variable);
        const Result result = runProgram(
            text("bash"),
            {text("-c"),
             text(R"(cd "$3"; export "$2=$3/"$'a\xff'; exec "$1" options set FarmOut=true)"),
             text("bash"), text(KESTDESK), variable, m_folder->path()});
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.startsWith(QStringLiteral("kestdesk: %1 names a folder with "
                                                         "characters that cannot be read")
                                              .arg(variable)),
                 qPrintable(result.errors));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList(text("home")));
    }

    void anUnusableTemporaryFolderIsNoObstacle()
    {
        m_variables.append(text("TMPDIR=/no/such/folder"));
        const Result result = options({text("set"), text("FarmOut=true")});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(value("FarmOut"), text("true"));
    }

    void whatCannotBeSavedIsNamed()
    {
        QFile notAFolder(m_folder->filePath(text("user")));
        QVERIFY(notAFolder.open(QIODevice::WriteOnly));
        const Result result = options({text("set"), text("FarmOut=true"), text("RunRemote=true")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(text("not saved in ")), qPrintable(result.errors));
        QVERIFY2(result.errors.contains(text(": FarmOut, RunRemote\n")), qPrintable(result.errors));
        QCOMPARE(notAFolder.size(), 0);
    }

    void restoreTakesTheInstallationsDefaults()
    {
        writeDefaults("[options]\nKest.ProcessPriority=4\n");
        QCOMPARE(value("Kest.ProcessPriority"), text("4")); // there is no file of the user's yet
        QCOMPARE(
            options({text("set"), text("Kest.ProcessPriority=0"), text("FarmOut=true")}).exitCode,
            0);
        QCOMPARE(value("Kest.ProcessPriority"), text("0"));
        QCOMPARE(options({text("restore")}).exitCode, 0);
        QCOMPARE(value("Kest.ProcessPriority"), text("4"));
        QCOMPARE(value("FarmOut"), text("false"));
    }

    void restoreIsRecorded()
    {
        const QString script = m_folder->filePath(text("script"));
        m_variables.append(text("KEST_SCRIPT=") + script);
        QCOMPARE(options({text("restore")}).exitCode, 0);
        QCOMPARE(options({text("restore")}).exitCode, 0);
        QFile file(script);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("ComponentLaunchOptions:RestoreDefaults()\n"
                                            "ComponentLaunchOptions:RestoreDefaults()\n"));
    }

    void scriptThatCannotBeWrittenIsToldOf()
    {
        m_variables.append(text("KEST_SCRIPT=/no/such/folder/script"));
        const Result result = options({text("restore")});
        QVERIFY(result.errors.contains(text("cannot record to ") +
                                       QDir::toNativeSeparators(text("/no/such/folder/script"))));
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_options_files)
#include "tst_kestdesk_options_files.moc"
