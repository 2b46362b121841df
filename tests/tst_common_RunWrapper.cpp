#include <BoxReader.h>
#include <RecordingObserver.h>
#include <SettingsFolders.h>

#include <common_CommonSettingsSet.h>
#include <common_RunWrapper.h>

#include <QApplication>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <iterator>
#include <memory>

#include <sys/stat.h>

namespace {

using Wrapper = common_RunWrapper;
using Options = QFlags<Wrapper::RunOption>;

const char* const machines = "node1:4\nnode2\n# spare:8\n";

enum SetUp { Prekest, Kest, Optkest, Amrkest };
constexpr int setUpCount = 4;

bool setUp(Wrapper& wrapper, SetUp which, Wrapper::Runner& runner, const QFileInfo& model,
           Options options)
{
    switch (which) {
    case Prekest:
        return wrapper.setupPrekestProcess(runner, model, options);
    case Kest:
        return wrapper.setupKestProcess(runner, model, options);
    case Optkest:
        return wrapper.setupOptkestProcess(runner, model, options);
    default:
        return wrapper.setupAmrkestProcess(runner, model, options);
    }
}

/// A user with an installation and a model, and a runner that is to be set up. The components of
/// the installation are kest_test_child, and the model is what that is to do.
class Site
{
public:
    Site()
        : user(folders.path() + QStringLiteral("/home"))
        , installation(folders.path() + QStringLiteral("/kest"))
        , model(folders.path() + QStringLiteral("/models/model.commands"))
        , m_userHome("KEST_USER_HOME", user)
        , m_installationHome("KEST_HOME", installation)
    {
        QDir().mkpath(user);
        QDir().mkpath(installation + QStringLiteral("/bin"));
        QDir().mkpath(installation + QStringLiteral("/shared/mpi"));
        QDir().mkpath(model.path());
        for (const char* component : {"prekest", "runkest", "optkest", "amrkest"}) {
            QFile::link(QStringLiteral(KEST_TEST_CHILD), program(component));
        }
        SettingsFolders::write(folders.defaultFile(), "");
        SettingsFolders::write(model.filePath(), "directory\nvariable\nKEST_MPISTATISTICS\n"
                                                 "variable\nMINE\nvariable\nKEST_TEST_PASSED\n");
        settings = std::make_unique<common_CommonSettingsSet>(folders.info.userSettings,
                                                              QStringLiteral("Kest"));
        wrapper = std::make_unique<Wrapper>(settings.get());
        renewRunner();
    }

    void renewRunner() { runner = std::make_unique<Wrapper::Runner>(); }

    bool writeOptions(const QByteArray& lines) const
    {
        return SettingsFolders::write(folders.userFile(), "[options]\n" + lines);
    }

    bool writeUsersMachines() const { return SettingsFolders::write(userFile(), machines); }
    bool writeInstallationsMachines() const
    {
        return SettingsFolders::write(installation + QStringLiteral("/shared/mpi/machines.kest"),
                                      machines);
    }

    QString userFile() const { return user + QStringLiteral("/machines.kest"); }
    QString program(const char* component) const
    {
        return installation + QStringLiteral("/bin/") + QLatin1String(component);
    }

    bool setUpFor(SetUp which, Options options) const
    {
        return setUp(*wrapper, which, *runner, model, options);
    }

    /// Copies of the machines file in the user's folder.
    QStringList copies() const
    {
        QStringList paths;
        const QStringList names =
            QDir(user).entryList({QStringLiteral("gui_tmp_*")}, QDir::Files | QDir::Hidden);
        for (const QString& name : names) {
            paths.append(user + QLatin1Char('/') + name);
        }
        return paths;
    }

    QStringList arguments() const { return runner->getArguments(); }

    SettingsFolders folders;
    QString user;
    QString installation;
    QFileInfo model;

private:
    Variable m_userHome;
    Variable m_installationHome;

public:
    std::unique_ptr<common_CommonSettingsSet> settings;
    std::unique_ptr<Wrapper> wrapper;
    std::unique_ptr<Wrapper::Runner> runner;
};

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

/// A command line behind the model's name. Words in braces stand for what the options make.
struct Layout
{
    SetUp setUp;
    const char* options;  ///< P, R, F for the flags; "." for none, "?" behind a flag for either
    const char* words;
};

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

QStringList words(const QString& text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList words(const char* text)
{
    return words(QString::fromUtf8(text));
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

class tst_common_RunWrapper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_reader = std::make_unique<BoxReader>();
        m_service = std::make_unique<FakeApplication>(false);
    }

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
        QCOMPARE(site.arguments(), commandLine(*layout, *choice, site.copies().value(0)));
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
        QCOMPARE(wordsOfRun(site), QStringList{QFileInfo(site.model.path()).canonicalFilePath()} +
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

    void copiesTheMachinesFileForTheRun_data()
    {
        QTest::addColumn<int>("setUp");
        QTest::addColumn<int>("options");
        QTest::addColumn<bool>("isLocal");
        QTest::addColumn<bool>("localOnly");
        // clang-format off
        QTest::newRow("parallel, user's")                    << int(Kest)    << 1 << true  << false;
        QTest::newRow("parallel, user's, local only")        << int(Kest)    << 1 << true  << true;
        QTest::newRow("parallel, installation's")            << int(Kest)    << 1 << false << false;
        QTest::newRow("parallel, installation's, local only") << int(Kest)   << 1 << false << true;
        QTest::newRow("optimiser, parallel")                 << int(Optkest) << 1 << true  << false;
        QTest::newRow("optimiser, farmed")                   << int(Optkest) << 4 << false << false;
        QTest::newRow("optimiser, farmed and parallel")      << int(Optkest) << 5 << true  << false;
        QTest::newRow("optimiser, farmed, local only")       << int(Optkest) << 4 << true  << true;
        // clang-format on
    }

    void copiesTheMachinesFileForTheRun()
    {
        QFETCH(int, setUp);
        QFETCH(int, options);
        QFETCH(bool, isLocal);
        QFETCH(bool, localOnly);
        const Site site;
        QVERIFY(isLocal ? site.writeUsersMachines() : site.writeInstallationsMachines());
        QVERIFY(!localOnly || site.writeOptions("Kest.ParallelAuthenticMethod=2\n"));
        QVERIFY(site.setUpFor(SetUp(setUp), Options(QFlag(options))));
        QCOMPARE(site.copies().size(), 1);
        const QString copy = site.copies().value(0);
        const QRegularExpression name(QStringLiteral("/gui_tmp_machfile_(0|[1-9]\\d{0,2})$"));
        QVERIFY2(name.match(copy).hasMatch(), qPrintable(copy));
        QCOMPARE(SettingsFolders::read(copy), QByteArray(machines));
        QCOMPARE(site.arguments().contains(QStringLiteral("--machines-file")), !localOnly);
        QCOMPARE(site.arguments().contains(QDir::toNativeSeparators(copy)), !localOnly);

        RecordingObserver observer(site.runner.get());
        bool wasThere = false;
        observer.then = [&wasThere, copy](const QString& event) {
            wasThere = event == QLatin1String("done") && QFile::exists(copy);
        };
        QVERIFY(site.runner->runAndWaitForFinish());
        QVERIFY(wasThere);
        QCOMPARE(site.copies(), QStringList());
        QCOMPARE(QFile::exists(site.userFile()), isLocal);
    }

    void passesTheCopyThatIsThereAlready()
    {
        const Site site;
        QVERIFY(site.writeUsersMachines());
        for (int i = 0; i < 1000; ++i) {
            QVERIFY(SettingsFolders::write(
                site.user + QStringLiteral("/gui_tmp_machfile_%1").arg(i), "earlier\n"));
        }
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        const QStringList copies = site.copies();
        QCOMPARE(copies.size(), 1000);
        const QString passed = site.arguments().value(5);
        QVERIFY2(copies.contains(passed), qPrintable(passed));
        QCOMPARE(SettingsFolders::read(passed), QByteArray("earlier\n"));
    }

    void doesNotTellThatACopyFails()
    {
        const Site site;
        QVERIFY(site.writeInstallationsMachines());
        const Variable home("KEST_USER_HOME", site.folders.path() + QStringLiteral("/no where"));
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        QCOMPARE(site.arguments().value(4), QStringLiteral("--machines-file"));
        const QString passed = site.arguments().value(5);
        QVERIFY2(
            passed.startsWith(site.folders.path() + QStringLiteral("/no where/gui_tmp_machfile_")),
            qPrintable(passed));
        QVERIFY(!QFile::exists(passed));
    }

    void pipeInPlaceOfTheMachinesFileIsNotCopied()
    {
        const Site site;
        QVERIFY(mkfifo(QFile::encodeName(site.userFile()).constData(), 0600) == 0);
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        const QVector<BoxReader::Box> boxes = m_reader->take();
        QVERIFY(!boxes.isEmpty());
        for (const BoxReader::Box& box : boxes) {
            QCOMPARE(box.title, QStringLiteral("Open failed"));
        }
        QVERIFY(!QFile::exists(site.arguments().value(5)));
        QCOMPARE(site.copies(), QStringList());
    }

    void tellsThatTheUsersFolderForTheCopyIsUnknown()
    {
        const Site site;
        QVERIFY(site.writeInstallationsMachines());
        const Variable home("KEST_USER_HOME");
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        verifyError(m_reader->take(), {noVariable()});
        const QStringList line{QStringLiteral("model.commands"),
                               QStringLiteral("--run-from-gui"),
                               QStringLiteral("-np"),
                               QStringLiteral("all"),
                               QStringLiteral("--machines-file"),
                               QString(),
                               QStringLiteral("--parallel-authenticate"),
                               QStringLiteral("sspi"),
                               QStringLiteral("--use-gpu"),
                               QStringLiteral("0")};
        QCOMPARE(site.arguments(), line);
    }

    void passesTheLastCopyWhenTheUsersFolderIsUnknown()
    {
        Site site;
        QVERIFY(site.writeInstallationsMachines());
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        const QString copy = site.copies().value(0);
        QCOMPARE(site.arguments().value(5), copy);
        site.renewRunner();
        const Variable home("KEST_USER_HOME");
        QVERIFY(site.setUpFor(Optkest, Wrapper::FarmOut));
        verifyError(m_reader->take(), {noVariable()});
        QCOMPARE(site.copies(), QStringList(copy));
        QCOMPARE(site.arguments().value(4), QStringLiteral("--machines-file"));
        QCOMPARE(site.arguments().value(5), copy);
    }

    void tellsWhatIsMissing_data()
    {
        QTest::addColumn<int>("setUp");
        QTest::addColumn<int>("options");
        QTest::addColumn<QString>("told"); // h, p and f: host, file for parallel and for farming
        QTest::addColumn<bool>("expected");
        QTest::addColumn<QString>("line");
        // clang-format off
        for (int options = 0; options < 8; ++options) {
            add(Prekest, options, "", true, "model.commands --run-from-gui");
        }
        add(Kest, 0, "",   true,  "model.commands --run-from-gui --use-gpu 0");
        add(Kest, 1, "p",  false, "model.commands --run-from-gui");
        add(Kest, 2, "h",  false, "model.commands");
        add(Kest, 3, "h",  false, "model.commands");
        add(Kest, 4, "",   true,  "model.commands --run-from-gui --use-gpu 0");
        add(Kest, 5, "p",  false, "model.commands --run-from-gui");
        add(Kest, 6, "h",  false, "model.commands");
        add(Kest, 7, "h",  false, "model.commands");
        add(Optkest, 0, "",   true,  "model.commands --run-from-gui -r --runkest-options --use-gpu 0");
        add(Optkest, 1, "p",  false, "model.commands --run-from-gui -r");
        add(Optkest, 2, "h",  false, "model.commands --run-from-gui -r --runkest-options");
        add(Optkest, 3, "p",  false, "model.commands --run-from-gui -r");
        add(Optkest, 4, "f",  true,  "model.commands --run-from-gui -r --runkest-options --use-gpu 0");
        add(Optkest, 5, "fp", false, "model.commands --run-from-gui -r");
        add(Optkest, 6, "fh", false, "model.commands --run-from-gui -r --runkest-options");
        add(Optkest, 7, "fp", false, "model.commands --run-from-gui -r");
        for (int options = 0; options < 8; options += 2) {
            add(Amrkest, options, "", true, "model.commands --run-from-gui --runkest-options --use-gpu 0");
            add(Amrkest, options + 1, "", true, "model.commands --run-from-gui --runkest-options --parallel-authenticate sspi --use-gpu 0");
        }
        // clang-format on
    }

    void tellsWhatIsMissing()
    {
        QFETCH(int, setUp);
        QFETCH(int, options);
        QFETCH(QString, told);
        QFETCH(bool, expected);
        QFETCH(QString, line);
        const Site site;
        QVERIFY(site.writeOptions("Optkest.DeleteAllFiles=true\nKest.RemoteHost=\"  \"\n"));
        QCOMPARE(site.setUpFor(SetUp(setUp), Options(QFlag(options))), expected);
        QVector<Error> errors;
        for (const QChar letter : qAsConst(told)) {
            errors.append(errorOf(letter));
        }
        verifyError(m_reader->take(), errors);
        QCOMPARE(site.arguments(), words(line));
        QCOMPARE(site.copies(), QStringList());
    }

    void keepsTheEnvironmentBackFromARunWithoutAHost()
    {
        const Site site;
        QVERIFY(site.writeOptions("Kest.ParallelEnvOptions=3\n"));
        QVERIFY(!site.setUpFor(Kest, Wrapper::Remote));
        verifyError(m_reader->take(), {noHost()});
        QCOMPARE(site.runner->getExecutable().filePath(), site.program("runkest"));
        QCOMPARE(site.runner->getWorkingDirectory(), site.model.path());
        const Variable passed("KEST_TEST_PASSED");
        const Variable statistics("KEST_MPISTATISTICS");
        QCOMPARE(wordsOfRun(site), QStringList{QFileInfo(site.model.path()).canonicalFilePath()} +
                                       words("unset unset unset"));
    }

    void copiesForAFarmedRunThatHasNoHost()
    {
        const Site site;
        QVERIFY(site.writeUsersMachines());
        QVERIFY(!site.setUpFor(Optkest, Wrapper::FarmOut | Wrapper::Remote));
        verifyError(m_reader->take(), {noHost()});
        QCOMPARE(site.arguments(), words("model.commands --run-from-gui -np 2 --machines-file") +
                                       site.copies() + words("--runkest-options"));
    }

    void readsTheOptionsAtEverySetUp()
    {
        Site site;
        QVERIFY(site.writeOptions("Kest.ProcessPriority=4\n"));
        QVERIFY(site.setUpFor(Kest, Options()));
        QCOMPARE(site.arguments(), words("model.commands --run-from-gui --priority 4 --use-gpu 0"));
        QVERIFY(site.writeOptions("Kest.ProcessPriority=0\nAdaptkest.DeleteTempFiles=false\n"));
        site.renewRunner();
        QVERIFY(site.setUpFor(Kest, Options()));
        QCOMPARE(site.arguments(), words("model.commands --run-from-gui --priority 0 --use-gpu 0 "
                                         "--adaptkest-options --keep-files"));
    }

    void findsAMachinesFileThatWasMadeMeanwhile()
    {
        Site site;
        QVERIFY(!site.setUpFor(Kest, Wrapper::Parallel));
        verifyError(m_reader->take(), {errorOf(QLatin1Char('p'))});
        QVERIFY(site.writeUsersMachines());
        site.renewRunner();
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        QCOMPARE(site.copies().size(), 1);
    }

private:
    struct Error
    {
        QString title;
        QString text;
    };

    /// What the child writes that the runner has been set up for.
    static QStringList wordsOfRun(const Site& site)
    {
        const RecordingObserver observer(site.runner.get());
        site.runner->runAndWaitForFinish();
        QStringList printed;
        for (const QStringList& texts : observer.texts) {
            printed += texts;
        }
        return words(printed.join(QLatin1Char(' ')).simplified());
    }

    static Error noHost()
    {
        return {QStringLiteral("No remote host argument specified"),
                QStringLiteral("Unable to do remote launching since the remote host has not been "
                               "provided.")};
    }

    static Error noVariable()
    {
        return {QStringLiteral("No such environment variable"),
                QStringLiteral("Please set the environment variable KEST_USER_HOME before "
                               "proceeding.")};
    }

    static Error errorOf(QChar letter)
    {
        switch (letter.toLatin1()) {
        case 'p':
            return {QStringLiteral("No machines file"),
                    QStringLiteral(
                        "No machines file could be found. Please configure one using\n"
                        "\"Component launch options\" (select the \"Kest Solver\" tab and\n"
                        "click \"Configure\") or uncheck \"Parallel\" on the \"Run/launch\"\n"
                        "group to switch to sequential execution.\n")};
        case 'f':
            return {
                QStringLiteral("No machines file"),
                QStringLiteral("No machines file could be found. Please configure one using\n"
                               "\"Component launch options\" (select the \"Utilities\" tab and\n"
                               "click \"Configure\") or uncheck \"Run -> Farm out by OPTKEST\"\n"
                               "to switch to sequential execution.")};
        default:
            return noHost();
        }
    }

    static void add(SetUp setUp, int options, const char* told, bool expected, const char* line)
    {
        QTest::addRow("set-up %d, flags %d", int(setUp), options)
            << int(setUp) << options << QString::fromLatin1(told) << expected
            << QString::fromLatin1(line);
    }

    static void verifyError(const QVector<BoxReader::Box>& boxes, const QVector<Error>& errors)
    {
        QCOMPARE(boxes.size(), errors.size());
        for (int i = 0; i < boxes.size(); ++i) {
            QCOMPARE(boxes[i].title, errors[i].title);
            QCOMPARE(boxes[i].text, errors[i].text);
            QCOMPARE(boxes[i].details, QString());
            QCOMPARE(boxes[i].icon, QMessageBox::Critical);
            QVERIFY(!boxes[i].parent);
        }
    }

    std::unique_ptr<BoxReader> m_reader;
    std::unique_ptr<FakeApplication> m_service;
};

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    tst_common_RunWrapper test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_RunWrapper.moc"
