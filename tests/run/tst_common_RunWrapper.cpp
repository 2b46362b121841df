// SPDX-License-Identifier: MIT
#include "RunWrapperSite.h"

#include <BoxReader.h>

#include <common_RunWrapper.h>

#include <QApplication>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <iterator>

namespace {

constexpr int setUpCount = 4;

/// Options that the user has chosen, and what becomes of them on the command lines, words apart
/// from "-NP" and "-np" with what follows those.
struct Choice
{
    const char* name;
    const char* settings;
    const char* prekest;      ///< of prekest itself
    const char* prekestGroup; ///< for a prekest that the solver starts
    const char* sequential;
    const char* sequentialRemote;
    const char* parallel;
    const char* parallelRemote;
    const char* count; ///< of the parallel run
    const char* host;  ///< one argument; empty: there is none to run on
    const char* adaptkestGroup;
    const char* optkest;
    const char* farmCount;
    const char* amrkest;
    bool localOnly;
};

// clang-format off
const Choice choices[] = {
    {"nothing", "",
     "", "",
     "--use-gpu 0", "--use-gpu 0",
     "--parallel-authenticate sspi --use-gpu 0", "--parallel-authenticate sspi --use-gpu 0",
     "all", "", "", "", "2", "", false},

    {"much",
     "Prekest.ContinueWithErrors=true\n"
     "Prekest.AdvancedOptions=-NP 3 -y\n"
     "Prekest.ExportVariablesToStdOut=true\n"
     "Kest.ProcessPriority=4\n"
     "Kest.SpecifyParallelProcesses=true\n"
     "Kest.NumberOfParallelProcesses=8\n"
     "Kest.ParallelAuthenticMethod=3\n"
     "Kest.UseGPUforNVIDIA=true\n"
     "Kest.RemoteHost=\"user@host  -p 22\"\n"
     "Kest.RemoteExecutionMethod=1\n"
     "Kest.AdvancedOptions=\"  --foo   bar \"\n"
     "Kest.CheckGeometryOnly=true\n"
     "Adaptkest.RestartAnalysisNumber=true\n"
     "Adaptkest.AnalysisNumber=6\n"
     "Adaptkest.DeleteTempFiles=false\n"
     "Optkest.NumberOfFarmProcesses=5\n"
     "Optkest.RestartFromSolverRun=true\n"
     "Optkest.SolverRun=7\n"
     "Optkest.DeleteAllFiles=true\n"
     "Amrkest.ErrorThreshold=0\n"
     "Amrkest.AdvancedOptions=-NP 9 --z\n",
     "--ignore-errors -y --print-variables",
     "--prekest-options --ignore-errors -NP 3 -y --print-variables",
     "--priority 4 --use-gpu --foo bar --kest-options --check-only",
     "--priority 4 --use-gpu --remote-use-mpi --foo bar --kest-options --check-only",
     "--priority 4 --parallel-authenticate default --use-gpu --foo bar --kest-options --check-only",
     "--priority 4 --parallel-authenticate default --use-gpu --remote-use-mpi --foo bar --kest-options --check-only",
     "8", "user@host  -p 22",
     "--adaptkest-options --restart 6 --keep-files",
     "--restart 7 -r", "5",
     "--error-threshold high -NP 9 --z", false},

    {"local only, -np in the free text",
     "Kest.ParallelAuthenticMethod=2\n"
     "Kest.DisableGPUNote=true\n"
     "Kest.RemoteHost=host\n"
     "Kest.RemoteExecutionMethod=0\n"
     "Kest.AdvancedOptions=-np 5 -x -np 6\n"
     "Amrkest.SkipFinalSolve=true\n",
     "", "",
     "-np 5 -x -np 6", "-np 5 -x -np 6",
     "--parallel-authenticate localonly -x -np 6", "--parallel-authenticate localonly -x -np 6",
     "all", "host", "", "", "2", "--skip-final-solve", true},

    {"-NP last in the free text, and nothing else",
     "Prekest.AdvancedOptions=-NP\n"
     "Kest.DisableGPUNote=true\n"
     "Kest.RemoteHost=host\n"
     "Kest.RemoteExecutionMethod=0\n"
     "Kest.AdvancedOptions=-NP\n",
     "", "--prekest-options -NP",
     "", "",
     "--parallel-authenticate sspi", "--parallel-authenticate sspi",
     "all", "host", "", "", "2", "", false},

    {"-NP in the free text too",
     "Kest.DisableGPUNote=true\n"
     "Kest.SpecifyParallelProcesses=true\n"
     "Kest.NumberOfParallelProcesses=8\n"
     "Kest.RemoteHost=host\n"
     "Kest.RemoteExecutionMethod=0\n"
     "Kest.AdvancedOptions=-NP 3 -np\n",
     "", "",
     "-np", "-np",
     "--parallel-authenticate sspi -NP 3", "--parallel-authenticate sspi -NP 3",
     "8", "host", "", "", "2", "", false},
};
// clang-format on

/// A command line behind the model's name. Words in braces stand for what the options make.
struct Layout
{
    SetUp setUp;
    const char* options; ///< P, R, F for the flags; "." for none, "?" behind a flag for either
    const char* words;
};

// clang-format off
const Layout layouts[] = {
    {Prekest, "P?R?F?", "--run-from-gui {prekest}"},

    {Kest, "F?",    "--run-from-gui {sequential} {prekest group} {adaptkest group}"},
    {Kest, "PF?",   "--run-from-gui -np {count} {machines file} {parallel} {prekest group} {adaptkest group}"},
    {Kest, "RF?",   "--remote-host {host} --run-from-gui {sequential remote} {prekest group} {adaptkest group}"},
    {Kest, "PRF?",  "--remote-host {host} --run-from-gui -np {count} {machines file} {parallel remote} {prekest group} {adaptkest group}"},

    {Optkest, ".",   "--run-from-gui {optkest} --runkest-options {sequential} {prekest group} {adaptkest group}"},
    {Optkest, "P",   "--run-from-gui {optkest} --runkest-options -np {count} {machines file} {parallel} {prekest group} {adaptkest group}"},
    {Optkest, "R",   "--run-from-gui {optkest} --runkest-options --remote-host {host} {sequential remote} {prekest group} {adaptkest group}"},
    {Optkest, "PR",  "--run-from-gui {optkest} --runkest-options --remote-host {host} -np {count} {machines file} {parallel remote} {prekest group} {adaptkest group}"},
    {Optkest, "F",   "--run-from-gui {optkest} -np {farm count} {machines file} --runkest-options {sequential} {prekest group} {adaptkest group}"},
    {Optkest, "PF",  "--run-from-gui {optkest} -np {farm count} {machines file} --runkest-options -np {count} {parallel} {prekest group} {adaptkest group}"},
    {Optkest, "RF",  "--run-from-gui {optkest} -np {farm count} {machines file} --runkest-options --remote-host {host} {sequential remote} {prekest group} {adaptkest group}"},
    {Optkest, "PRF", "--run-from-gui {optkest} -np {farm count} {machines file} --runkest-options --remote-host {host} -np {count} {parallel remote} {prekest group} {adaptkest group}"},

    {Amrkest, "F?",   "--run-from-gui {amrkest} {runkest group: sequential}"},
    {Amrkest, "PF?",  "--run-from-gui {amrkest} {runkest group: parallel}"},
    {Amrkest, "RF?",  "--run-from-gui {amrkest} {runkest group: sequential remote}"},
    {Amrkest, "PRF?", "--run-from-gui {amrkest} {runkest group: parallel remote}"},
};
// clang-format on

bool allows(const Layout& layout, Options options)
{
    const QString text = QLatin1String(layout.options);
    const auto fits = [&text, options](char letter, Wrapper::RunOption option) {
        const int index = text.indexOf(QLatin1Char(letter));
        const bool either = index >= 0 && text.mid(index + 1, 1) == QLatin1String("?");
        return either || (index >= 0) == options.testFlag(option);
    };
    return fits('P', Wrapper::Parallel) && fits('R', Wrapper::Remote) &&
           fits('F', Wrapper::FarmOut);
}

QStringList runkestGroup(const char* text)
{
    const QStringList group = words(text);
    return group.isEmpty() ? group : QStringList(QStringLiteral("--runkest-options")) + group;
}

/// What a word in braces stands for.
QStringList filled(const QString& name, const Choice& choice, const QString& copy)
{
    const QMap<QString, QStringList> parts = {
        {QStringLiteral("prekest"), words(choice.prekest)},
        {QStringLiteral("prekest group"), words(choice.prekestGroup)},
        {QStringLiteral("sequential"), words(choice.sequential)},
        {QStringLiteral("sequential remote"), words(choice.sequentialRemote)},
        {QStringLiteral("parallel"), words(choice.parallel)},
        {QStringLiteral("parallel remote"), words(choice.parallelRemote)},
        {QStringLiteral("runkest group: sequential"), runkestGroup(choice.sequential)},
        {QStringLiteral("runkest group: sequential remote"), runkestGroup(choice.sequentialRemote)},
        {QStringLiteral("runkest group: parallel"), runkestGroup(choice.parallel)},
        {QStringLiteral("runkest group: parallel remote"), runkestGroup(choice.parallelRemote)},
        {QStringLiteral("count"), words(choice.count)},
        {QStringLiteral("farm count"), words(choice.farmCount)},
        {QStringLiteral("host"), {QString::fromUtf8(choice.host)}},
        {QStringLiteral("adaptkest group"), words(choice.adaptkestGroup)},
        {QStringLiteral("optkest"), words(choice.optkest)},
        {QStringLiteral("amrkest"), words(choice.amrkest)},
        {QStringLiteral("machines file"),
         choice.localOnly ? QStringList() : QStringList{QStringLiteral("--machines-file"), copy}},
    };
    return parts.value(name, {QStringLiteral("unknown: ") + name});
}

QStringList commandLine(const Layout& layout, const Choice& choice, const QString& copy)
{
    QStringList line(QStringLiteral("model.commands"));
    const QStringList pieces =
        QString::fromUtf8(layout.words).split(QRegularExpression(QStringLiteral("[{}]")));
    for (int i = 0; i < pieces.size(); ++i) {
        line += i % 2 == 0 ? words(pieces[i]) : filled(pieces[i], choice, copy);
    }
    return line;
}

} // namespace

Q_DECLARE_METATYPE(const Layout*)

Q_DECLARE_METATYPE(const Choice*)

class tst_common_RunWrapper : public QObject, protected RunWrapperStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { offerServices(); }

    void cleanup() { QCOMPARE(m_reader->take().size(), 0); }

    void numbersItsOptions()
    {
        QCOMPARE(int(Wrapper::Parallel), 1);
        QCOMPARE(int(Wrapper::Remote), 2);
        QCOMPARE(int(Wrapper::FarmOut), 4);
        QCOMPARE(int(Wrapper::CopyMachinesFile), 0);
        QCOMPARE(int(Wrapper::ProcessCountOnly), 1);
    }

    void hasNoParent()
    {
        const Wrapper wrapper(nullptr);
        QVERIFY(!wrapper.parent());
        QVERIFY(wrapper.inherits("common_RunWrapper"));
    }

    void makesCommandLines_data()
    {
        QTest::addColumn<const Choice*>("choice");
        QTest::addColumn<const Layout*>("layout");
        QTest::addColumn<int>("options");
        for (const Choice& choice : choices) {
            for (int number = 0; number < setUpCount * 8; ++number) {
                const Options options(QFlag(number % 8));
                const auto fits = [number, options](const Layout& layout) {
                    return layout.setUp == number / 8 && allows(layout, options);
                };
                const auto* const layout =
                    std::find_if(std::begin(layouts), std::end(layouts), fits);
                QVERIFY(layout != std::end(layouts));
                QTest::addRow("%s: set-up %d, flags %d", choice.name, number / 8, number % 8)
                    << &choice << layout << number % 8;
            }
        }
    }

    void makesCommandLines()
    {
        QFETCH(const Choice*, choice);
        QFETCH(const Layout*, layout);
        QFETCH(int, options);
        const QString pattern = QLatin1String(layout->words);
        const bool needsHost = pattern.contains(QLatin1String("{host}"));
        const bool copies = pattern.contains(QLatin1String("{machines file}"));
        const bool isPossible = !needsHost || *choice->host != '\0';
        const Site site;
        QVERIFY(site.writeUsersMachines());
        QVERIFY(site.writeOptions(choice->settings));
        QCOMPARE(site.setUpFor(layout->setUp, Options(QFlag(options))), isPossible);
        if (!isPossible) {
            verifyError(m_reader->take(), {noHost()});
            return; // what is there of the line is compared elsewhere
        }
        QCOMPARE(site.copies().size(), copies ? 1 : 0);
        QCOMPARE(site.arguments(),
                 commandLine(*layout, *choice, QDir::toNativeSeparators(site.copies().value(0))));
    }

    void setsUpTheRest_data()
    {
        QTest::addColumn<int>("setUp");
        QTest::addColumn<QByteArray>("component");
        QTest::newRow("prekest") << int(Prekest) << QByteArray("prekest");
        QTest::newRow("runkest") << int(Kest) << QByteArray("runkest");
        QTest::newRow("optkest") << int(Optkest) << QByteArray("optkest");
        QTest::newRow("amrkest") << int(Amrkest) << QByteArray("amrkest");
    }

    void setsUpTheRest()
    {
        QFETCH(int, setUp);
        QFETCH(QByteArray, component);
        const Site site;
        const Variable passed("KEST_TEST_PASSED", QStringLiteral("handed down"));
        QVERIFY(site.writeOptions("Kest.ParallelEnvOptions=3\n"
                                  "EnvironmentVariables=\"MINE=a b\\nnonsense\"\n"));
        QVERIFY(site.setUpFor(SetUp(setUp), Options()));
        QCOMPARE(site.runner->getExecutable().filePath(), site.program(component.constData()));
        QCOMPARE(site.runner->getWorkingDirectory(), site.model.path());
        QVERIFY(!site.runner->isRunning());
        QCOMPARE(wordsOfRun(site), QStringList{QDir::toNativeSeparators(
                                       QFileInfo(site.model.path()).canonicalFilePath())} +
                                       words("3 a b handed down"));
        QCOMPARE(site.runner->exitCode(), 0);
    }

    void takesTheDirectoryOfARelativeModel()
    {
        const Site site;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(site.folders.path()));
        const QString current = QDir::currentPath();
        const bool isSetUp = setUp(*site.wrapper, Kest, *site.runner,
                                   QFileInfo(QStringLiteral("models/my model.kst")), Options());
        const QString directory = site.runner->getWorkingDirectory();
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(isSetUp);
        QCOMPARE(directory, current + QStringLiteral("/models"));
        QCOMPARE(site.arguments(),
                 (QStringList{QStringLiteral("my model.kst"), QStringLiteral("--run-from-gui"),
                              QStringLiteral("--use-gpu"), QStringLiteral("0")}));
    }

    void expandsVariablesInTheHome()
    {
        const Site site;
        const Variable root("KEST_TEST_ROOT", site.folders.path());
        const Variable home("KEST_HOME", QStringLiteral("${KEST_TEST_ROOT}/kest"));
        QVERIFY(site.setUpFor(Amrkest, Options()));
        QCOMPARE(site.runner->getExecutable().filePath(), site.program("amrkest"));
    }

    void addsToWhatTheRunnerHas()
    {
        const Site site;
        site.runner->addArgument(QStringLiteral("first"));
        QVERIFY(site.setUpFor(Prekest, Options()));
        QCOMPARE(site.arguments(), words("first model.commands --run-from-gui"));
    }
};

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    tst_common_RunWrapper test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_RunWrapper.moc"
