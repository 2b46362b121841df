// SPDX-License-Identifier: MIT
#include "OptionsStage.h"

#include "../support/SystemSkips.h"

#include <QSettings>

// "kestdesk options ...": what it shows, what it accepts and what it refuses.
class tst_kestdesk_options : public QObject, private OptionsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }

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
        QTest::newRow("two signs")       << "EnvironmentVariables=A=b=c" << R"(EnvironmentVariables accepts NAME=VALUE, one a line, with no further "=", and not "A=b=c". Line 1 has more than one "=")";
        QTest::newRow("no sign")         << "EnvironmentVariables=A=1\nnothing" << "Line 2 is not NAME=VALUE.";
        QTest::newRow("no name")         << "EnvironmentVariables==1"  << "Line 1 is not NAME=VALUE.";
        QTest::newRow("lost blanks")     << "EnvironmentVariables=A=1  2" << "which are not kept";
        QTest::newRow("twice")           << "EnvironmentVariables=A=1\nA=2" << "Line 2 sets A a second time.";
        QTest::newRow("carriage return") << "EnvironmentVariables=A=1\r\nB=2" << "Control characters are not allowed.";
        QTest::newRow("option as host")  << "Kest.RemoteHost=-oProxyCommand=x" << R"(Kest.RemoteHost accepts a host as [user@]HOST [user=NAME] [port=NUMBER] [home=FOLDER], or nothing, and not "-oProxyCommand=x". "-oProxyCommand=x" cannot be used: the name of a host does not begin with "-".)";
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
        SKIP_WITHOUT_LONG_ARGUMENTS(assignment);
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
        SKIP_WITHOUT_BYTES_IN_ARGUMENTS();
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
        QTest::addColumn<QString>("problem");
        // clang-format off
        QTest::newRow("none")           << QStringList()                                                << "no command given";
        QTest::newRow("unknown")        << QStringList{text("show")}                                    << "unknown command \"show\"";
        QTest::newRow("get nothing")    << QStringList{text("get")}                                     << "NAME is missing";
        QTest::newRow("get two")        << QStringList{text("get"), text("FarmOut"), text("RunRemote")} << "unexpected argument \"RunRemote\"";
        QTest::newRow("set nothing")    << QStringList{text("set")}                                     << "NAME=VALUE is missing";
        QTest::newRow("list something") << QStringList{text("list"), text("FarmOut")}                   << "unexpected argument \"FarmOut\"";
        // clang-format on
    }

    void commandsThatMakeNoSenseShowHowToUseThem()
    {
        QFETCH(QStringList, words);
        QFETCH(QString, problem);
        const Result result = options(words);
        QCOMPARE(result.exitCode, 2);
        QVERIFY(result.output.isEmpty());
        QVERIFY(result.errors.startsWith(text("Usage: kestdesk options COMMAND\n")));
        QVERIFY2(result.errors.endsWith(QStringLiteral("kestdesk: %1\n").arg(problem)),
                 qPrintable(result.errors));
    }

    void unknownOptionIsNotGot()
    {
        const Result result = options({text("get"), text("nothing")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.errors.contains(text("there is no option \"nothing\"")));
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_options)
#include "tst_kestdesk_options.moc"
