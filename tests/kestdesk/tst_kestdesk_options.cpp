#include <KEST_binfiles.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

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
    Result runProgram(const QString& program, const QStringList& arguments) const
    {
        QProcess process;
        process.setEnvironment(QProcess::systemEnvironment() + m_variables +
                               QStringList{text("LC_ALL=C.UTF-8")});
        process.start(program, arguments);
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
        QTest::newRow("other letters")    << QString::fromUtf8("Kest.RemoteHost=h\xc3\xb6st") << QString::fromUtf8("h\xc3\xb6st");
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
        QTest::newRow("no integer")      << "Kest.NumberOfParallelProcesses=many" << "accepts an integer from 1, and not \"many\"";
        QTest::newRow("empty integer")   << "Adaptkest.AnalysisNumber=" << "accepts an integer from 1, and not \"\"";
        QTest::newRow("too small")       << "Optkest.NumberOfFarmProcesses=1" << "accepts an integer from 2, and not \"1\"";
        QTest::newRow("too large")       << "Optkest.SolverRun=99999999999" << "accepts an integer from 1";
        QTest::newRow("unknown")         << "Kest.Priority=3"          << "there is no option \"Kest.Priority\"";
        QTest::newRow("never kept")      << "Timekest.DeleteTempFiles=true" << "there is no option \"Timekest.DeleteTempFiles\"";
        QTest::newRow("other entity's")  << "3DMouseSensitivity=3"     << "there is no option \"3DMouseSensitivity\"";
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

    void lockedFileIsNotChangedAndItsHolderIsNamed_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("set") << QStringList{text("set"), text("FarmOut=true")};
        QTest::newRow("restore") << QStringList{text("restore")};
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
        QVERIFY(result.errors.contains(text("RunRemote, ")) ||
                result.errors.contains(text(", RunRemote")));
        QVERIFY(result.errors.contains(text("FarmOut")));
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
