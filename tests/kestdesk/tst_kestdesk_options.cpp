#include <SpecialFile.h>

#include <KEST_binfiles.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSettings>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct Result
{
    int exitCode = -1;
    QString output;
    QString errors;
};

} // namespace

class tst_kestdesk_options : public QObject
{
    Q_OBJECT

private:
    void start(QProcess& process, const QString& program, const QStringList& arguments) const
    {
        process.setEnvironment(QProcess::systemEnvironment() + m_variables +
                               QStringList{text("LC_ALL=C.UTF-8")});
        process.start(program, arguments);
    }

    Result runProgram(const QString& program, const QStringList& arguments) const
    {
        QProcess process;
        start(process, program, arguments);
        process.waitForFinished();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    Result options(const QStringList& words) const
    {
        return runProgram(text(KESTDESK), QStringList(text("options")) + words);
    }

    QString value(const char* name) const
    {
        return options({text("get"), text(name)}).output.trimmed();
    }

    void writeDefaults(const QByteArray& content) const
    {
        QFile file(m_folder->filePath(text("home/default.ini")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("no default.ini");
        }
    }

    QString settingsFile() const { return m_folder->filePath(text("user/kest.ini")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_variables;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_folder->path()).mkpath(text("home")));
        m_variables = QStringList{text("KEST_HOME=") + m_folder->filePath(text("home")),
                                  text("KEST_USER_HOME=") + m_folder->filePath(text("user"))};
    }

    void listShowsEveryOptionThatIsKept()
    {
        const Result result = options({text("list")});
        QCOMPARE(result.exitCode, 0);
        const QStringList lines = result.output.trimmed().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 39);
        QVERIFY(lines.contains(text("Kest.ProcessPriority=2")));
        QVERIFY(lines.contains(text("Adaptkest.DeleteTempFiles=true")));
        QVERIFY(lines.contains(text("Kest.RemoteHost=")));
        QVERIFY(!result.output.contains(text("Optkest.SpecifyNumberOfFarmProcesses")));
        QVERIFY(!result.output.contains(text("Timekest.DeleteTempFiles")));
        QVERIFY(!QFile::exists(settingsFile()));
    }

    void whatIsSetIsThereForGet_data()
    {
        QTest::addColumn<QString>("assignment");
        QTest::addColumn<QString>("value");
        // clang-format off
        QTest::newRow("member by value")  << "Kest.ProcessPriority=3"                    << "3";
        QTest::newRow("member by key")    << "Kest.ProcessPriority=HighProcessPriority"  << "3";
        QTest::newRow("boolean")          << "RunParallel=true"                          << "true";
        QTest::newRow("boolean as digit") << "Adaptkest.DeleteTempFiles=0"               << "false";
        QTest::newRow("integer")          << "Kest.NumberOfParallelProcesses=16"         << "16";
        QTest::newRow("smallest")         << "Optkest.NumberOfFarmProcesses=2"           << "2";
        QTest::newRow("text")             << "Kest.AdvancedOptions=--a  \"b=c\", ;d"     << "--a  \"b=c\", ;d";
        QTest::newRow("empty text")       << "Kest.RemoteHost="                          << "";
        QTest::newRow("other letters")    << QString::fromUtf8("Kest.AdvancedOptions=h\xc3\xb6st") << QString::fromUtf8("h\xc3\xb6st");
        QTest::newRow("largest count")    << "Kest.NumberOfParallelProcesses=4096"       << "4096";
        QTest::newRow("host")             << "Kest.RemoteHost=node-1.example_2"          << "node-1.example_2";
        QTest::newRow("host and more")    << "Kest.RemoteHost=me@node1 port=22 home=/opt/kest" << "me@node1 port=22 home=/opt/kest";
        QTest::newRow("address")          << "Kest.RemoteHost=fe80::1"                   << "fe80::1";
        QTest::newRow("variables")        << "EnvironmentVariables=A=1\n\nB=two words\nC=" << "A=1\n\nB=two words\nC=";
        QTest::newRow("frequency")        << "Amrkest.Frequency=14.2e0"                  << "14.2e0";
        QTest::newRow("no frequency")     << "Amrkest.Frequency="                        << "";
        QTest::newRow("GPUs")             << "Kest.GPUsList=0,12"                        << "0,12";
        QTest::newRow("count of GPUs")    << "Kest.NumberOfGPUs=2"                       << "2";
        // clang-format on
    }

    void whatIsSetIsThereForGet()
    {
        QFETCH(QString, assignment);
        QFETCH(QString, value);
        const Result set = options({text("set"), assignment});
        QCOMPARE(set.errors, QString());
        QCOMPARE(set.exitCode, 0);
        const Result got = options({text("get"), assignment.section(QLatin1Char('='), 0, 0)});
        QCOMPARE(got.output, value + text("\n"));
        QCOMPARE(got.exitCode, 0);
    }

    void wrongAssignmentSaysWhatIsAcceptedAndChangesNothing_data()
    {
        QTest::addColumn<QString>("assignment");
        QTest::addColumn<QString>("complaint");
        // clang-format off
        QTest::newRow("no such member")  << "Kest.ProcessPriority=7"   << "Kest.ProcessPriority accepts 0 (IdleProcessPriority), 1 (LowProcessPriority), 2 (NormalProcessPriority), 3 (HighProcessPriority), 4 (HighestProcessPriority), and not \"7\"";
        QTest::newRow("member missing")  << "Kest.ParallelAuthenticMethod=0" << "Kest.ParallelAuthenticMethod accepts 1 (ParallelAuthenticMethodTypeSSPI), 2 (";
        QTest::newRow("no boolean")      << "RunParallel=maybe"        << "RunParallel accepts true or false, and not \"maybe\"";
        QTest::newRow("no integer")      << "Kest.NumberOfParallelProcesses=many" << "accepts an integer from 1 to 4096, and not \"many\"";
        QTest::newRow("empty integer")   << "Adaptkest.AnalysisNumber=" << "accepts an integer from 1 to 1000000, and not \"\"";
        QTest::newRow("too small")       << "Optkest.NumberOfFarmProcesses=1" << "accepts an integer from 2 to 4096, and not \"1\"";
        QTest::newRow("too large")       << "Optkest.SolverRun=99999999999" << "accepts an integer from 1";
        QTest::newRow("unknown")         << "Kest.Priority=3"          << "there is no option \"Kest.Priority\"";
        QTest::newRow("never kept")      << "Timekest.DeleteTempFiles=true" << "there is no option \"Timekest.DeleteTempFiles\"";
        QTest::newRow("other entity's")  << "3DMouseSensitivity=3"     << "there is no option \"3DMouseSensitivity\"";
        QTest::newRow("more than a component takes") << "Kest.NumberOfParallelProcesses=4097" << "accepts an integer from 1 to 4096, and not \"4097\"";
        QTest::newRow("negative level")  << "Kest.ParallelEnvOptions=-1" << "accepts an integer from 0, and not \"-1\"";
        QTest::newRow("two signs")       << "EnvironmentVariables=A=b=c" << "EnvironmentVariables accepts NAME=VALUE, one a line, with no further \"=\", and not \"A=b=c\". Line 1 has more than one \"=\"";
        QTest::newRow("no sign")         << "EnvironmentVariables=A=1\nnothing" << "Line 2 is not NAME=VALUE.";
        QTest::newRow("no name")         << "EnvironmentVariables==1"  << "Line 1 is not NAME=VALUE.";
        QTest::newRow("lost blanks")     << "EnvironmentVariables=A=1  2" << "which are not kept";
        QTest::newRow("twice")           << "EnvironmentVariables=A=1\nA=2" << "Line 2 sets A a second time.";
        QTest::newRow("carriage return") << "EnvironmentVariables=A=1\r\nB=2" << "Control characters are not allowed.";
        QTest::newRow("option as host")  << "Kest.RemoteHost=-oProxyCommand=x" << "Kest.RemoteHost accepts a host as [user@]HOST [user=NAME] [port=NUMBER] [home=FOLDER], or nothing, and not \"-oProxyCommand=x\". \"-oProxyCommand=x\" cannot be used: the name of a host does not begin with \"-\".";
        QTest::newRow("option as user")  << "Kest.RemoteHost=-l@host"  << "a user's name has letters";
        QTest::newRow("option behind")   << "Kest.RemoteHost=host -p 22" << "\"-p\" cannot be used";
        QTest::newRow("two hosts")       << "Kest.RemoteHost=host1 host2" << "\"host2\" cannot be used: behind the host there may be user=NAME, port=NUMBER and home=FOLDER.";
        QTest::newRow("blanks")          << "Kest.RemoteHost= host"    << "There must be one blank between two words";
        QTest::newRow("shell characters") << "Kest.RemoteHost=a;reboot" << "\";\" is not allowed in the name of a host";
        QTest::newRow("substitution")    << "Kest.RemoteHost=$(reboot)" << "\"$\" is not allowed in the name of a host";
        QTest::newRow("back quotes")     << "Kest.RemoteHost=a`b`"     << "\"`\" is not allowed in the name of a host";
        QTest::newRow("other letters")   << QString::fromUtf8("Kest.RemoteHost=h\xc3\xb6st") << QString::fromUtf8("\"\xc3\xb6\" is not allowed in the name of a host");
        QTest::newRow("port")            << "Kest.RemoteHost=a port=99999" << "a port is a number from 1 to 65535";
        QTest::newRow("folder")          << "Kest.RemoteHost=a home=kest" << "a folder is given by its absolute path";
        for (const char* const frequency : {"nan", "inf", "1e999", "1e16", "-1", "0", "fast", "14,2", " 1", "1 MHz", "0x10", "1e-999"}) {
            QTest::addRow("frequency %s", frequency) << QStringLiteral("Amrkest.Frequency=") + text(frequency) << "Amrkest.Frequency accepts a positive number in MHz, such as 14.2, or nothing";
        }
        for (const char* const count : {"two", "0", "-1", "1.5", "1000000", " 1"}) {
            QTest::addRow("GPUs %s", count) << QStringLiteral("Kest.NumberOfGPUs=") + text(count) << "Kest.NumberOfGPUs accepts a whole number from 1";
        }
        for (const char* const list : {"0,", "0 ,1", "a", "0-3", "-1", "1,1", "1,01"}) {
            QTest::addRow("GPU list %s", list) << QStringLiteral("Kest.GPUsList=") + text(list) << "Kest.GPUsList accepts numbers with commas";
        }
        for (const char* const name : {"Kest.AdvancedOptions", "Prekest.AdvancedOptions", "Amrkest.AdvancedOptions"}) {
            QTest::addRow("line break in %s", name) << text(name) + QStringLiteral("=--a\n--b") << "accepts any text in one line, and not \"--a?--b\". Line breaks and other control characters are not allowed.";
            QTest::addRow("endless %s", name) << text(name) + QLatin1Char('=') + QString(100001, QLatin1Char('x')) << "The text is longer than 100000 bytes.";
        }
        QTest::newRow("escape")          << "Kest.AdvancedOptions=\x1b[2J" << "and not \"?[2J\"";
        QTest::newRow("no equals sign")  << "RunParallel"              << "\"RunParallel\" is not NAME=VALUE";
        // clang-format on
    }

    void wrongAssignmentSaysWhatIsAcceptedAndChangesNothing()
    {
        QFETCH(QString, assignment);
        QFETCH(QString, complaint);
        const Result result = options({text("set"), text("FarmOut=true"), assignment});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(complaint), qPrintable(result.errors));
        QVERIFY(!QFile::exists(settingsFile()));
    }

    void everyMistakeIsNamed()
    {
        const Result result =
            options({text("set"), text("a=1"), text("RunParallel=x"), text("b=2")});
        QCOMPARE(result.errors.count(text("kestdesk: ")), 3);
    }

    void setKeepsOtherOptionsAndOtherGroups()
    {
        {
            QDir().mkpath(m_folder->filePath(text("user")));
            QSettings settings(settingsFile(), QSettings::IniFormat);
            settings.setValue(text("options/RunRemote"), true);
            settings.setValue(text("options/Somebody.Elses"), 5);
            settings.setValue(text("3dmouse/3DMouseSensitivity"), 7);
        }
        QCOMPARE(options({text("set"), text("FarmOut=true")}).exitCode, 0);
        QSettings settings(settingsFile(), QSettings::IniFormat);
        QCOMPARE(settings.value(text("options/RunRemote")).toBool(), true);
        QCOMPARE(settings.value(text("options/FarmOut")).toBool(), true);
        QCOMPARE(settings.value(text("options/Somebody.Elses")).toInt(), 5);
        QCOMPARE(settings.value(text("3dmouse/3DMouseSensitivity")).toInt(), 7);
    }

    void bytesThatAreNoTextAreRefused()
    {
        const Result result = runProgram(text("bash"), {text("-c"),
                                                        text("exec \"$1\" options set "
                                                             "Kest.AdvancedOptions=$'a\\xffb'"),
                                                        text("bash"), text(KESTDESK)});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(text("could not be read as UTF-8")),
                 qPrintable(result.errors));
        QVERIFY(!QFile::exists(settingsFile()));
    }

    void aSwitchForNothingIsToldOf()
    {
        const Result on = options({text("set"), text("Amrkest.SpecifyFrequency=true")});
        QCOMPARE(on.exitCode, 0);
        QCOMPARE(on.errors,
                 text("kestdesk: Amrkest.Frequency is empty, so Amrkest.SpecifyFrequency "
                      "is without effect. Give a frequency, or do not specify one.\n"));
        QCOMPARE(value("Amrkest.SpecifyFrequency"), text("true"));
        QCOMPARE(options({text("set"), text("FarmOut=true")}).errors, QString());
        QCOMPARE(options({text("set"), text("Amrkest.Frequency=14.2")}).errors, QString());
    }

    // Whatever the file holds is read, and only what is set is judged.
    void whatIsInTheFileIsNotJudged()
    {
        QDir().mkpath(m_folder->filePath(text("user")));
        {
            QSettings settings(settingsFile(), QSettings::IniFormat);
            settings.setValue(text("options/EnvironmentVariables"), text("A=b=c"));
            settings.setValue(text("options/Kest.RemoteHost"), text("-x"));
        }
        QCOMPARE(options({text("set"), text("FarmOut=true")}).exitCode, 0);
        QCOMPARE(value("EnvironmentVariables"), text("A=b=c"));
        QCOMPARE(value("Kest.RemoteHost"), text("-x"));
    }

#ifdef KEST_SUITE
    // What is accepted here must not be refused by the component, whose errors come before it
    // works.
    void componentsTakeTheLargestAndNoMore_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("largest");
        QTest::addColumn<QString>("more");
        QTest::addColumn<QString>("command");
        // clang-format off
        QTest::newRow("processes")  << "Kest.NumberOfParallelProcesses" << "4096"    << "4097"    << "runkest missing.nec -NP %1";
        QTest::newRow("farm")       << "Optkest.NumberOfFarmProcesses"  << "4096"    << "4097"    << "optkest missing.nec -NP %1";
        QTest::newRow("analysis")   << "Adaptkest.AnalysisNumber"       << "1000000" << "1000001" << "adaptkest missing.nec --restart %1";
        QTest::newRow("solver run") << "Optkest.SolverRun"              << "1000000" << "1000001" << "optkest missing.nec --restart %1";
        QTest::newRow("iterations") << "Amrkest.MaximumIterations"      << "1000000" << "1000001" << "amrkest missing.nec --max-iterations %1";
        QTest::newRow("frequency")  << "Amrkest.Frequency"              << "1e15"    << "2e15"    << "amrkest missing.nec --frequency %1";
        QTest::newRow("GPUs")       << "Kest.NumberOfGPUs"              << "999999"  << "1000000" << "runkest missing.nec --use-gpu %1";
        QTest::newRow("port")       << "Kest.RemoteHost"                << "h port=65535" << "h port=65536" << "runkest missing.nec --remote-host %1";
        // clang-format on
    }

    void componentsTakeTheLargestAndNoMore()
    {
        QFETCH(QString, option);
        QFETCH(QString, largest);
        QFETCH(QString, more);
        QFETCH(QString, command);
        const auto refusal = [&](const QString& value) {
            QStringList words = command.split(QLatin1Char(' '));
            words.last() = value;
            const QString program = text(KEST_SUITE "/bin/") + words.takeFirst();
            const Result result = runProgram(program, words);
            const QString said = result.output + result.errors;
            return said.contains(text("option --")) || said.contains(text("option -NP")) ||
                   said.contains(text("unexpected argument"));
        };
        QCOMPARE(options({text("set"), option + QLatin1Char('=') + largest}).errors, QString());
        QVERIFY(!refusal(largest));
        QCOMPARE(options({text("set"), option + QLatin1Char('=') + more}).exitCode, 1);
        QVERIFY(refusal(more));
    }
#endif

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
        if (kind == S_IFCHR && ::geteuid() != 0) {
            QTest::qSkip("only the administrator makes devices", __FILE__, __LINE__);
            return;
        }
        const QString file =
            isDefaultIni ? m_folder->filePath(text("home/default.ini")) : settingsFile();
        QDir().mkpath(m_folder->filePath(text("user")));
        QVERIFY(SpecialFile::make(kind, file));
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
        QVERIFY(SpecialFile::make(S_IFIFO, m_folder->filePath(text("home/default.ini"))));
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
        QVERIFY(SpecialFile::make(kind, lock));
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
        QFETCH(QString, variable);
        const Result result = runProgram(
            text("bash"),
            {text("-c"),
             text("cd \"$3\"; export \"$2=$3/\"$'a\\xff'; exec \"$1\" options set FarmOut=true"),
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

    void waitsUntilTheOthersAreDone_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QString>("seconds");
        QTest::newRow("set") << QStringList{text("set"), text("FarmOut=true")} << "5";
        QTest::newRow("restore") << QStringList{text("restore")} << "5";
        QTest::newRow("long") << QStringList{text("set"), text("--wait"), text("600"),
                                             text("FarmOut=true")}
                              << "600";
        QTest::newRow("with a sign, at the end")
            << QStringList{text("set"), text("FarmOut=true"), text("--wait=60")} << "60";
    }

    void waitsUntilTheOthersAreDone()
    {
        QFETCH(QStringList, words);
        QFETCH(QString, seconds);
        writeDefaults("[options]\nFarmOut=true\n");
        const std::wstring path = settingsFile().toStdWString();
        uint64_t handle = 0;
        QCOMPARE(KEST_binfiles_set_lock_hard(path.c_str(), 0, &handle), 0);
        QProcess process;
        start(process, text(KESTDESK), QStringList(text("options")) + words);
        process.setReadChannel(QProcess::StandardError);
        QByteArray errors;
        while (!errors.contains('\n') && process.waitForReadyRead(30000)) {
            errors += process.readAllStandardError();
        }
        QCOMPARE(QString::fromUtf8(errors),
                 QStringLiteral("kestdesk: waiting up to %1 seconds for %2 as process %3 on %4, "
                                "which holds %5\n")
                     .arg(seconds, QFileInfo(QCoreApplication::applicationFilePath()).fileName())
                     .arg(QCoreApplication::applicationPid())
                     .arg(QSysInfo::machineHostName(), settingsFile()));
        QVERIFY(!QFile::exists(settingsFile()));
        QCOMPARE(KEST_binfiles_remove_lock(path.c_str(), handle), 0);
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(process.readAllStandardError(), QByteArray());
        QCOMPARE(value("FarmOut"), text("true"));
    }

    void nonsensicalWaitsAreRefused_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QString>("complaint");
        const QString assignment = text("FarmOut=true");
        const auto add = [&](const char* seconds) {
            QTest::newRow(seconds)
                << QStringList{text("set"), text("--wait"), text(seconds), assignment}
                << QStringLiteral(
                       "kestdesk: --wait takes whole seconds from 0 to 3600, and not \"%1\"\n")
                       .arg(text(seconds));
        };
        for (const char* const seconds : {"-1", "3601", "1.5", "soon", "", "99999999999", "5s"}) {
            add(seconds);
        }
        QTest::newRow("missing") << QStringList{text("restore"), text("--wait")}
                                 << "and not \"\"\n";
        QTest::newRow("missing behind the sign")
            << QStringList{text("restore"), text("--wait=")} << "and not \"\"\n";
        QTest::newRow("an assignment instead")
            << QStringList{text("set"), text("--wait"), assignment} << "and not \"FarmOut=true\"\n";
        QTest::newRow("twice") << QStringList{text("set"), text("--wait=1"), text("--wait=2"),
                                              assignment}
                               << "kestdesk: --wait is given twice\n";
        QTest::newRow("nothing to wait for") << QStringList{text("list"), text("--wait"), text("5")}
                                             << "Usage: kestdesk options COMMAND\n";
        QTest::newRow("nothing to set") << QStringList{text("set"), text("--wait"), text("5")}
                                        << "Usage: kestdesk options COMMAND\n";
    }

    void nonsensicalWaitsAreRefused()
    {
        QFETCH(QStringList, words);
        QFETCH(QString, complaint);
        const Result result = options(words);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(complaint), qPrintable(result.errors));
        QVERIFY(!QFile::exists(settingsFile()));
    }

    // Each of several scripts sets an option of its own again and again, and reads it back.
    void scriptsAtOnceAreNeitherRefusedNorLoseAnything()
    {
        const char* const names[] = {"Adaptkest.AnalysisNumber",
                                     "Optkest.SolverRun",
                                     "Kest.NumberOfParallelProcesses",
                                     "Kest.ParallelEnvOptions",
                                     "Optkest.NumberOfFarmProcesses",
                                     "Amrkest.MaximumIterations",
                                     "Kest.NumberOfGPUs",
                                     "Amrkest.Frequency"};
        const int last = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 61 : 8;
        const QString script = text("for i in $(seq 2 $2); do "
                                    "told=$(\"$0\" options set --wait 120 \"$1=$i\" 2>&1) || "
                                    "echo \"refused, exit code $?: $told\"; "
                                    "[ \"$(\"$0\" options get \"$1\")\" = $i ] || echo lost; done");
        std::vector<std::unique_ptr<QProcess>> processes;
        for (const char* const name : names) {
            processes.push_back(std::make_unique<QProcess>());
            start(*processes.back(), text("bash"),
                  {text("-c"), script, text(KESTDESK), text(name), QString::number(last)});
        }
        for (const auto& process : processes) {
            QVERIFY(process->waitForFinished(290000));
            QCOMPARE(process->readAllStandardOutput(), QByteArray());
        }
        for (const char* const name : names) {
            QCOMPARE(value(name), QString::number(last));
        }
    }

    // A writer is killed anywhere; the next one neither waits nor is refused.
    void theNextOneIsNotRefusedAfterAKill()
    {
        const int kills = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 250 : 15;
        for (int kill = 0; kill < kills; ++kill) {
            QProcess writer;
            start(writer, text(KESTDESK), {text("options"), text("set"), text("FarmOut=true")});
            QVERIFY(writer.waitForStarted());
            QTest::qSleep(QRandomGenerator::global()->bounded(10, 80));
            QCOMPARE(::kill(static_cast<pid_t>(writer.processId()), SIGKILL), 0);
            const Result next = options({text("set"), text("--wait=0"), text("RunRemote=true")});
            QCOMPARE(next.errors, QString());
            QCOMPARE(next.exitCode, 0);
            writer.waitForFinished();
        }
        QCOMPARE(value("RunRemote"), text("true"));
    }

    void lockedFileIsNotChangedAndItsHolderIsNamed_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("set") << QStringList{text("set"), text("--wait=0"), text("FarmOut=true")};
        QTest::newRow("restore") << QStringList{text("restore"), text("--wait"), text("0")};
        QTest::newRow("after a second") << QStringList{text("restore"), text("--wait"), text("1")};
    }

    void lockedFileIsNotChangedAndItsHolderIsNamed()
    {
        QFETCH(QStringList, words);
        const std::wstring path = settingsFile().toStdWString();
        uint64_t handle = 0;
        QCOMPARE(KEST_binfiles_set_lock_hard(path.c_str(), 0, &handle), 0);
        const Result result = options(words);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(
                     QStringLiteral("The %1 file is locked. (17331)").arg(settingsFile())),
                 qPrintable(result.errors));
        QVERIFY(result.errors.contains(QStringLiteral("process %1 on %2 holds it")
                                           .arg(QCoreApplication::applicationPid())
                                           .arg(QSysInfo::machineHostName())));
        QVERIFY(!QFile::exists(settingsFile()));
        QCOMPARE(value("FarmOut"), text("false")); // reading needs no lock
        QCOMPARE(KEST_binfiles_remove_lock(path.c_str(), handle), 0);
        QCOMPARE(options(words).exitCode, 0);
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
        QVERIFY(result.errors.contains(text("cannot record to /no/such/folder/script")));
    }

    void valuesAreTheWordsToCompleteWith()
    {
        QCOMPARE(options({text("values"), text("Amrkest.ErrorThreshold")}).output,
                 text("HighErrorThreshold\nNormalErrorThreshold\nLowErrorThreshold\n"));
        QCOMPARE(options({text("values"), text("RunRemote")}).output, text("true\nfalse\n"));
        QCOMPARE(options({text("values"), text("Kest.RemoteHost")}).output, QString());
    }

    void commandsThatMakeNoSenseShowHowToUseThem_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("none") << QStringList();
        QTest::newRow("unknown") << QStringList{text("show")};
        QTest::newRow("get nothing") << QStringList{text("get")};
        QTest::newRow("get two") << QStringList{text("get"), text("FarmOut"), text("RunRemote")};
        QTest::newRow("set nothing") << QStringList{text("set")};
        QTest::newRow("list something") << QStringList{text("list"), text("FarmOut")};
    }

    void commandsThatMakeNoSenseShowHowToUseThem()
    {
        QFETCH(QStringList, words);
        const Result result = options(words);
        QCOMPARE(result.exitCode, 2);
        QVERIFY(result.output.isEmpty());
        QVERIFY(result.errors.startsWith(text("Usage: kestdesk options COMMAND\n")));
    }

    void unknownOptionIsNotGot()
    {
        const Result result = options({text("get"), text("nothing")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.errors.contains(text("there is no option \"nothing\"")));
    }

    void bashCompletes_data()
    {
        QTest::addColumn<QString>("words"); // with the one to complete last
        QTest::addColumn<QString>("completions");
        // clang-format off
        QTest::newRow("command")      << "options l"                              << "list";
        QTest::newRow("commands")     << "options ''"                             << "list get set restore values";
        QTest::newRow("name")         << "options get Kest.ProcessP"              << "Kest.ProcessPriority";
        QTest::newRow("name to set")  << "options set Kest.ProcessP"              << "Kest.ProcessPriority=";
        QTest::newRow("wait")         << "options set --"                         << "--wait";
        QTest::newRow("wait, restore") << "options restore -"                     << "--wait";
        QTest::newRow("restore")      << "options restore ''"                     << "--wait";
        QTest::newRow("seconds")      << "options set --wait ''"                  << "";
        QTest::newRow("behind wait")  << "options set --wait 5 Kest.ProcessP"     << "Kest.ProcessPriority=";
        QTest::newRow("behind wait, sign") << "options set --wait = 5 FarmO"      << "FarmOut=";
        QTest::newRow("seconds, sign") << "options set --wait ="                  << "";
        QTest::newRow("no wait")      << "options get --"                         << "";
        QTest::newRow("list")         << "options list ''"                        << "";
        QTest::newRow("values")       << "options set RunRemote ="                << "true false";
        QTest::newRow("value")        << "options set Kest.ProcessPriority = Low" << "LowProcessPriority";
        QTest::newRow("machines")     << "machines ''"                            << "show check edit use-local";
        QTest::newRow("machines' option") << "machines show -"                    << "--json";
        QTest::newRow("this machine") << "machines use-local -"                   << "--replace";
        QTest::newRow("limit")        << "machines check --t"                     << "--timeout";
        QTest::newRow("component")    << "--non-interactive --component o"        << "optkest";
        QTest::newRow("components")   << "--component ''"                         << "runkest prekest optkest amrkest";
        QTest::newRow("with sign")    << "--component = a"                        << "amrkest";
        QTest::newRow("run options")  << "--component optkest --fa"               << "--farm-out";
        QTest::newRow("parallel")     << "--p"                                    << "--parallel";
        QTest::newRow("first word")   << "mach"                                   << "machines";
        QTest::newRow("second name")  << "options set RunRemote = true FarmO"     << "FarmOut=";
        // clang-format on
    }

    void bashCompletes()
    {
        QFETCH(QString, words);
        QFETCH(QString, completions);
        const Result result = runProgram(
            text("bash"),
            {text("--norc"), text("-c"),
             QStringLiteral(
                 "complete() { :; }; compopt() { :; }; source %1; COMP_WORDS=(%2 %3); "
                 "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _kestdesk; echo \"${COMPREPLY[@]}\"")
                 .arg(text(KESTDESK_COMPLETION), text(KESTDESK), words)});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.output.trimmed(), completions);
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_options)
#include "tst_kestdesk_options.moc"
