// SPDX-License-Identifier: MIT
#include "CommandLineLists.h"

#include <SettingsFolders.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QtTest>

#include <vector>

namespace {

using Texts = std::vector<const char*>;

QStringList listOf(const Texts& texts)
{
    QStringList list;
    for (const char* text : texts) {
        list.append(QString::fromUtf8(text));
    }
    return list;
}

struct CommandLine
{
    const char* name;
    Getter getter;
    Assignments assignments;
    Texts expected;
};

/// With the GPU option out of the way.
Assignments noGPU(Assignments others)
{
    others.emplace_back(gpuNote, true);
    return others;
}

Assignments everythingOfKest()
{
    return {{priority, 4},           {gpuUse, true},      {gpuCount, "2"},
            {gpuList, "0,1"},        {host, "node7"},     {method, 1},
            {kestFree, "--foo bar"}, {checkOnly, true},   {circuitFiles, true},
            {specifyParallel, true}, {parallelCount, 12}, {authentication, 3}};
}

// clang-format off
const std::vector<CommandLine>& commandLines() // NOLINT(readability-function-size): a table
{
    static const std::vector<CommandLine> table = {
        // all defaults
        {"prekest by default",                    Prekest,          {}, {}},
        {"sequential by default",                 Sequential,       {}, {"--use-gpu", "0"}},
        {"sequential remote by default",          SequentialRemote, {}, {"--use-gpu", "0"}},
        {"parallel by default",                   Parallel,         {}, {"--parallel-authenticate", "sspi", "--use-gpu", "0"}},
        {"parallel remote by default",            ParallelRemote,   {}, {"--parallel-authenticate", "sspi", "--use-gpu", "0"}},
        {"remote by default",                     Remote,           {}, {""}},
        {"adaptkest by default",                  Adaptkest,        {}, {}},
        {"optkest by default",                    Optkest,          {}, {"-NP", "2"}},
        {"amrkest by default",                    Amrkest,          {}, {}},
        {"environment by default",                Environment,      {}, {"KEST_MPISTATISTICS=0", ""}},
        {"local only by default",                 LocalOnly,        {}, {"no"}},
        {"host specified by default",             HostSpecified,    {}, {"no"}},

        // prekest
        {"ignore errors",                         Prekest, {{prekestErrors, true}}, {"--ignore-errors"}},
        {"print variables",                       Prekest, {{prekestStdOut, true}}, {"--print-variables"}},
        {"print variables to out file",           Prekest, {{prekestOut, true}}, {"--print-variables-to-out"}},
        {"all of prekest, in order",              Prekest, {{prekestOut, true}, {prekestStdOut, true}, {prekestFree, "-a b"}, {prekestErrors, true}},
                                                           {"--ignore-errors", "-a", "b", "--print-variables", "--print-variables-to-out"}},
        {"free text with two blanks",             Prekest, {{prekestFree, "-a  -b"}}, {"-a", "-b"}},
        {"free text with blanks around",          Prekest, {{prekestFree, "  --foo   bar "}}, {"--foo", "bar"}},
        {"free text with tabs and lines",         Prekest, {{prekestFree, "-a\t-b\n-c\r\n-d"}}, {"-a", "-b", "-c", "-d"}},
        {"free text in quotes is split",          Prekest, {{prekestFree, "--name \"two words\" 'x y'"}}, {"--name", "\"two", "words\"", "'x", "y'"}},
        {"free text with placeholders",           Prekest, {{prekestFree, "%1 %2"}}, {"%1", "%2"}},
        {"free text in other scripts",            Prekest, {{prekestFree, "\xc3\xa9\xc2\xa0\xe6\xbc\xa2"}}, {"\xc3\xa9", "\xe6\xbc\xa2"}},
        {"free text with backslashes",            Prekest, {{prekestFree, R"(C:\s\x \s)"}}, {R"(C:\s\x)", R"(\s)"}},
        {"free text of blanks only",              Prekest, {{prekestFree, "   "}}, {""}},
        {"free text of blanks between options",   Prekest, {{prekestErrors, true}, {prekestFree, " \t"}, {prekestStdOut, true}}, {"--ignore-errors", "", "--print-variables"}},

        // priority
        {"idle priority",                         Sequential, noGPU({{priority, 0}}), {"--priority", "0"}},
        {"low priority",                          Sequential, noGPU({{priority, 1}}), {"--priority", "1"}},
        {"normal priority",                       Sequential, noGPU({{priority, 2}}), {}},
        {"high priority",                         Sequential, noGPU({{priority, 3}}), {"--priority", "3"}},
        {"highest priority",                      Sequential, noGPU({{priority, 4}}), {"--priority", "4"}},
        {"priority that is none",                 Sequential, noGPU({{priority, 7}}), {"--priority", "7"}},
        {"negative priority",                     Sequential, noGPU({{priority, -1}}), {"--priority", "-1"}},
        {"idle priority in parallel",             Parallel,   noGPU({{priority, 0}}), {"--priority", "0", "--parallel-authenticate", "sspi"}},
        {"normal priority in parallel",           Parallel,   noGPU({{priority, 2}}), {"--parallel-authenticate", "sspi"}},

        // GPU
        {"GPU off, note on",                      Sequential, {{gpuUse, false}, {gpuNote, false}}, {"--use-gpu", "0"}},
        {"GPU off, note off",                     Sequential, {{gpuUse, false}, {gpuNote, true}}, {}},
        {"GPU off, note on, count and list",      Sequential, {{gpuCount, "2"}, {gpuList, "0,1"}}, {"--use-gpu", "0"}},
        {"GPU off, note off, count and list",     Sequential, {{gpuNote, true}, {gpuCount, "2"}, {gpuList, "0,1"}}, {}},
        {"GPU on",                                Sequential, {{gpuUse, true}}, {"--use-gpu"}},
        {"GPU on, note off",                      Sequential, {{gpuUse, true}, {gpuNote, true}}, {"--use-gpu"}},
        {"GPU count",                             Sequential, {{gpuUse, true}, {gpuCount, "3"}}, {"--use-gpu", "3"}},
        {"GPU count with a leading zero",         Sequential, {{gpuUse, true}, {gpuCount, "010"}}, {"--use-gpu", "10"}},
        {"GPU count as a word",                   Sequential, {{gpuUse, true}, {gpuCount, "two"}}, {"--use-gpu", "0"}},
        {"GPU count in base 16",                  Sequential, {{gpuUse, true}, {gpuCount, "0x10"}}, {"--use-gpu", "0"}},
        {"GPU count with decimals",               Sequential, {{gpuUse, true}, {gpuCount, "2.5"}}, {"--use-gpu", "0"}},
        {"GPU count beyond all bounds",           Sequential, {{gpuUse, true}, {gpuCount, "2147483648"}}, {"--use-gpu", "0"}},
        {"negative GPU count",                    Sequential, {{gpuUse, true}, {gpuCount, "-1"}}, {"--use-gpu", "-1"}},
        {"GPU count of blanks is not empty",      Sequential, {{gpuUse, true}, {gpuCount, "  "}}, {"--use-gpu", "0"}},
        {"GPU list",                              Sequential, {{gpuUse, true}, {gpuList, "0,1"}}, {"--use-gpu", ":0,1"}},
        {"GPU list of a blank is not empty",      Sequential, {{gpuUse, true}, {gpuList, " "}}, {"--use-gpu", ":"}},
        {"GPU list with blanks is split",         Sequential, {{gpuUse, true}, {gpuList, "0, 1"}}, {"--use-gpu", ":0,", "1"}},
        {"GPU list that begins with a blank",     Sequential, {{gpuUse, true}, {gpuList, " 1"}}, {"--use-gpu", ":", "1"}},
        {"GPU list with placeholders",            Sequential, {{gpuUse, true}, {gpuCount, "1"}, {gpuList, "%1%2"}}, {"--use-gpu", "1:%1%2"}},
        {"GPU count and list",                    Sequential, {{gpuUse, true}, {gpuCount, "2"}, {gpuList, "0,1"}}, {"--use-gpu", "2:0,1"}},
        {"GPU count as a word, and list",         Sequential, {{gpuUse, true}, {gpuCount, "two"}, {gpuList, "0,1"}}, {"--use-gpu", "0:0,1"}},
        {"GPU count and list with a blank",       Sequential, {{gpuUse, true}, {gpuCount, "2"}, {gpuList, "0, 1"}}, {"--use-gpu", "2:0,", "1"}},
        {"GPU count and list in parallel",        Parallel,   {{gpuUse, true}, {gpuCount, "2"}, {gpuList, "0,1"}}, {"--parallel-authenticate", "sspi", "--use-gpu", "2:0,1"}},
        {"no GPU option in parallel",             Parallel,   {{gpuNote, true}}, {"--parallel-authenticate", "sspi"}},

        // remote runs by MPI
        {"MPI, remote, host",                     SequentialRemote, noGPU({{method, 1}, {host, "node"}}), {"--remote-use-mpi"}},
        {"MPI, local, host",                      Sequential,       noGPU({{method, 1}, {host, "node"}}), {}},
        {"ssh, remote, host",                     SequentialRemote, noGPU({{method, 0}, {host, "node"}}), {}},
        {"no method, remote, host",               SequentialRemote, noGPU({{method, 2}, {host, "node"}}), {}},
        {"MPI, remote, no host",                  SequentialRemote, noGPU({{method, 1}}), {}},
        {"MPI, remote, host of blanks",           SequentialRemote, noGPU({{method, 1}, {host, " \t "}}), {}},
        {"MPI, remote, host with blanks",         SequentialRemote, noGPU({{method, 1}, {host, "  node "}}), {"--remote-use-mpi"}},
        {"MPI, remote, host, parallel",           ParallelRemote,   noGPU({{method, 1}, {host, "node"}}), {"--parallel-authenticate", "sspi", "--remote-use-mpi"}},
        {"MPI, local, host, parallel",            Parallel,         noGPU({{method, 1}, {host, "node"}}), {"--parallel-authenticate", "sspi"}},
        {"ssh, remote, host, parallel",           ParallelRemote,   noGPU({{method, 0}, {host, "node"}}), {"--parallel-authenticate", "sspi"}},
        {"MPI, remote, host of blanks, parallel", ParallelRemote,   noGPU({{method, 1}, {host, "  "}}), {"--parallel-authenticate", "sspi"}},

        // the solver's free text and its own options
        {"solver's free text",                    Sequential, noGPU({{kestFree, "  --foo   bar "}}), {"--foo", "bar"}},
        {"solver's free text in parallel",        Parallel,   noGPU({{kestFree, "  --foo   bar "}}), {"--parallel-authenticate", "sspi", "--foo", "bar"}},
        {"solver's free text of blanks",          Sequential, noGPU({{kestFree, "  "}}), {""}},
        {"solver's free text of blanks, parallel", Parallel,  noGPU({{kestFree, "  "}}), {"--parallel-authenticate", "sspi"}},
        {"check only",                            Sequential, noGPU({{checkOnly, true}}), {"--kest-options", "--check-only"}},
        {"circuit files",                         Sequential, noGPU({{circuitFiles, true}}), {"--kest-options", "--mtl-circuit-export"}},
        {"check only and circuit files",          Sequential, noGPU({{circuitFiles, true}, {checkOnly, true}}), {"--kest-options", "--check-only", "--mtl-circuit-export"}},
        {"check only and circuit files, parallel", Parallel,  noGPU({{circuitFiles, true}, {checkOnly, true}}), {"--parallel-authenticate", "sspi", "--kest-options", "--check-only", "--mtl-circuit-export"}},
        {"all of sequential, in order",           SequentialRemote, everythingOfKest(),
                                                  {"--priority", "4", "--use-gpu", "2:0,1", "--remote-use-mpi", "--foo", "bar", "--kest-options", "--check-only", "--mtl-circuit-export"}},
        {"all of sequential on this machine",     Sequential, everythingOfKest(),
                                                  {"--priority", "4", "--use-gpu", "2:0,1", "--foo", "bar", "--kest-options", "--check-only", "--mtl-circuit-export"}},
        {"all of parallel, in order",             ParallelRemote, everythingOfKest(),
                                                  {"--priority", "4", "-NP", "12", "--parallel-authenticate", "default", "--use-gpu", "2:0,1", "--remote-use-mpi", "--foo", "bar",
                                                   "--kest-options", "--check-only", "--mtl-circuit-export"}},
        {"all of parallel on this machine",       Parallel, everythingOfKest(),
                                                  {"--priority", "4", "-NP", "12", "--parallel-authenticate", "default", "--use-gpu", "2:0,1", "--foo", "bar",
                                                   "--kest-options", "--check-only", "--mtl-circuit-export"}},

        // parallel processes and authentication
        {"processes specified",                   Parallel, noGPU({{specifyParallel, true}}), {"-NP", "1", "--parallel-authenticate", "sspi"}},
        {"processes not specified",               Parallel, noGPU({{parallelCount, 8}}), {"--parallel-authenticate", "sspi"}},
        {"eight processes",                       Parallel, noGPU({{specifyParallel, true}, {parallelCount, 8}}), {"-NP", "8", "--parallel-authenticate", "sspi"}},
        {"no processes",                          Parallel, noGPU({{specifyParallel, true}, {parallelCount, 0}}), {"-NP", "0", "--parallel-authenticate", "sspi"}},
        {"negative processes",                    Parallel, noGPU({{specifyParallel, true}, {parallelCount, -3}}), {"-NP", "-3", "--parallel-authenticate", "sspi"}},
        {"processes do not concern sequential",   Sequential, noGPU({{specifyParallel, true}, {parallelCount, 8}}), {}},
        {"authentication 0",                      Parallel, noGPU({{authentication, 0}}), {"--parallel-authenticate", "localonly"}},
        {"authentication by SSPI",                Parallel, noGPU({{authentication, 1}}), {"--parallel-authenticate", "sspi"}},
        {"no authentication",                     Parallel, noGPU({{authentication, 2}}), {"--parallel-authenticate", "localonly"}},
        {"default authentication",                Parallel, noGPU({{authentication, 3}}), {"--parallel-authenticate", "default"}},
        {"authentication 4",                      Parallel, noGPU({{authentication, 4}}), {"--parallel-authenticate", "default"}},
        {"authentication 2147483647",             Parallel, noGPU({{authentication, 2147483647}}), {"--parallel-authenticate", "default"}},
        {"authentication -1",                     Parallel, noGPU({{authentication, -1}}), {"--parallel-authenticate", "default"}},
        {"authentication does not concern sequential", Sequential, noGPU({{authentication, 2}}), {}},
        {"local only 0",                          LocalOnly, {{authentication, 0}}, {"no"}},
        {"local only 1",                          LocalOnly, {{authentication, 1}}, {"no"}},
        {"local only 2",                          LocalOnly, {{authentication, 2}}, {"yes"}},
        {"local only 3",                          LocalOnly, {{authentication, 3}}, {"no"}},

        // host
        {"host",                                  Remote, {{host, "node"}}, {"node"}},
        {"host and more",                         Remote, {{host, "--user me node"}}, {"--user", "me", "node"}},
        {"two blanks in the host",                Remote, {{host, "a  b"}}, {"a", "", "b"}},
        {"blanks around the host",                Remote, {{host, " node "}}, {"", "node", ""}},
        {"other white space in the host",         Remote, {{host, "a\tb\nc"}}, {"a", "b", "c"}},
        {"host of two blanks",                    Remote, {{host, "  "}}, {"", "", ""}},
        {"host without a remote method",          Remote, {{host, "node"}, {method, 0}}, {"node"}},
        {"host is specified",                     HostSpecified, {{host, "node"}}, {"yes"}},
        {"host with blanks is specified",         HostSpecified, {{host, " \tnode\n"}}, {"yes"}},
        {"host of blanks is not specified",       HostSpecified, {{host, " \t\n "}}, {"no"}},

        // adaptkest
        {"adaptkest restarts",                    Adaptkest, {{adaptRestart, true}}, {"--restart", "1"}},
        {"adaptkest restarts at 5",               Adaptkest, {{adaptRestart, true}, {adaptNumber, 5}}, {"--restart", "5"}},
        {"adaptkest restarts at -2",              Adaptkest, {{adaptRestart, true}, {adaptNumber, -2}}, {"--restart", "-2"}},
        {"adaptkest has a number only",           Adaptkest, {{adaptNumber, 5}}, {}},
        {"adaptkest keeps files",                 Adaptkest, {{adaptDelete, false}}, {"--keep-files"}},
        {"all of adaptkest, in order",            Adaptkest, {{adaptDelete, false}, {adaptNumber, 12}, {adaptRestart, true}}, {"--restart", "12", "--keep-files"}},

        // optkest
        {"optkest with 16 processes",             Optkest, {{optCount, 16}}, {"-NP", "16"}},
        {"optkest with none",                     Optkest, {{optCount, 0}}, {"-NP", "0"}},
        {"optkest with a negative count",         Optkest, {{optCount, -1}}, {"-NP", "-1"}},
        {"optkest without its companion",         Optkest, {{optSpecify, false}, {optCount, 4}}, {"-NP", "4"}},
        {"optkest restarts",                      Optkest, {{optRestart, true}}, {"-NP", "2", "--restart", "1"}},
        {"optkest has a run only",                Optkest, {{optRun, 3}}, {"-NP", "2"}},
        {"optkest deletes",                       Optkest, {{optDelete, true}}, {"-NP", "2", "-r"}},
        {"all of optkest, in order",              Optkest, {{optDelete, true}, {optRun, 7}, {optRestart, true}, {optCount, 3}}, {"-NP", "3", "--restart", "7", "-r"}},

        // amrkest
        {"iterations specified",                  Amrkest, {{amrSpecifyIterations, true}}, {"--max-iterations", "1"}},
        {"iterations not specified",              Amrkest, {{amrIterations, 9}}, {}},
        {"nine iterations",                       Amrkest, {{amrSpecifyIterations, true}, {amrIterations, 9}}, {"--max-iterations", "9"}},
        {"no iterations",                         Amrkest, {{amrSpecifyIterations, true}, {amrIterations, 0}}, {}},
        {"negative iterations",                   Amrkest, {{amrSpecifyIterations, true}, {amrIterations, -9}}, {}},
        {"frequency",                             Amrkest, {{amrSpecifyFrequency, true}, {amrFrequency, "1e9"}}, {"--frequency", "1e9"}},
        {"frequency as typed",                    Amrkest, {{amrSpecifyFrequency, true}, {amrFrequency, "001.50"}}, {"--frequency", "001.50"}},
        {"frequency with a blank is split",       Amrkest, {{amrSpecifyFrequency, true}, {amrFrequency, " 1.5  GHz"}}, {"--frequency", "1.5", "GHz"}},
        {"frequency of blanks is not empty",      Amrkest, {{amrSpecifyFrequency, true}, {amrFrequency, "  "}}, {"--frequency"}},
        {"frequency with a placeholder",          Amrkest, {{amrSpecifyFrequency, true}, {amrFrequency, "%1"}}, {"--frequency", "%1"}},
        {"frequency empty",                       Amrkest, {{amrSpecifyFrequency, true}}, {}},
        {"frequency not specified",               Amrkest, {{amrFrequency, "1e9"}}, {}},
        {"high threshold",                        Amrkest, {{amrThreshold, 0}}, {"--error-threshold", "high"}},
        {"normal threshold",                      Amrkest, {{amrThreshold, 1}}, {}},
        {"low threshold",                         Amrkest, {{amrThreshold, 2}}, {"--error-threshold", "low"}},
        {"threshold 3",                           Amrkest, {{amrThreshold, 3}}, {}},
        {"threshold -1",                          Amrkest, {{amrThreshold, -1}}, {}},
        {"amrkest keeps files",                   Amrkest, {{amrDelete, false}}, {"--keep-files"}},
        {"amrkest skips the final solve",         Amrkest, {{amrSkip, true}}, {"--skip-final-solve"}},
        {"amrkest's free text",                   Amrkest, {{amrFree, " -x\t y "}}, {"-x", "y"}},
        {"amrkest's free text of blanks",         Amrkest, {{amrFree, " "}}, {""}},
        {"all of amrkest, in order",              Amrkest, {{amrFree, "-x y"}, {amrSkip, true}, {amrDelete, false}, {amrThreshold, 2}, {amrFrequency, "1e9"}, {amrSpecifyFrequency, true},
                                                            {amrIterations, 4}, {amrSpecifyIterations, true}},
                                                           {"--max-iterations", "4", "--frequency", "1e9", "--error-threshold", "low", "--keep-files", "--skip-final-solve", "-x", "y"}},

        // environment
        {"statistics",                            Environment, {{statistics, 2}}, {"KEST_MPISTATISTICS=2", ""}},
        {"negative statistics",                   Environment, {{statistics, -1}}, {"KEST_MPISTATISTICS=-1", ""}},
        {"one variable",                          Environment, {{variables, "A=1"}}, {"KEST_MPISTATISTICS=0", "A=1"}},
        {"two variables",                         Environment, {{variables, "A=1\nB=2"}}, {"KEST_MPISTATISTICS=0", "A=1", "B=2"}},
        {"empty lines",                           Environment, {{variables, "\nA=1\n\nB=2\n"}}, {"KEST_MPISTATISTICS=0", "", "A=1", "", "B=2", ""}},
        {"lines as they stand",                   Environment, {{variables, "  A = two words \n\tno sign"}}, {"KEST_MPISTATISTICS=0", "  A = two words ", "\tno sign"}},
        {"carriage returns stay",                 Environment, {{variables, "A=1\r\nB=2"}}, {"KEST_MPISTATISTICS=0", "A=1\r", "B=2"}},
        {"variables with placeholders",           Environment, {{variables, "A=%1"}}, {"KEST_MPISTATISTICS=0", "A=%1"}},
        {"variables that repeat the statistics",  Environment, {{statistics, 1}, {variables, "KEST_MPISTATISTICS=5"}}, {"KEST_MPISTATISTICS=1", "KEST_MPISTATISTICS=5"}},
    };
    return table;
}
// clang-format on

} // namespace

class tst_common_ComponentsCommandLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesTheListOfTheOptions_data()
    {
        QTest::addColumn<int>("number");
        for (std::size_t number = 0; number < commandLines().size(); ++number) {
            QTest::newRow(commandLines()[number].name) << int(number);
        }
    }

    void makesTheListOfTheOptions()
    {
        QFETCH(int, number);
        const CommandLine& row = commandLines()[std::size_t(number)];
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        assign(*options, row.assignments);
        QCOMPARE(listFrom(*options, row.getter), listOf(row.expected));
    }

    void takesTheOptionsOfTheFile()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\nKest.ProcessPriority=word\n"
                                                           "Kest.AdvancedOptions=\" --foo  bar\"\n"
                                                           "Optkest.NumberOfFarmProcesses=1\n"));
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        QCOMPARE(options->getKestSequentialOptions(false),
                 listOf({"--priority", "0", "--use-gpu", "0", "--foo", "bar"}));
        QCOMPARE(options->getOptkestOptions(), listOf({"-NP", "2"}));
    }

    void changesNothingByAsking()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        assign(*options, everything());
        const QStringList held = options->getProperties();
        QStringList before;
        QStringList after;
        for (const QString& name : held) {
            before.append((*options)[name].castToQString());
        }
        const std::vector<QStringList> first = allLists(*options);
        for (const QString& name : held) {
            after.append((*options)[name].castToQString());
        }
        QCOMPARE(after, before);
        QCOMPARE(options->getProperties(), held);
        QVERIFY(allLists(*options) == first);
    }
};

QTEST_GUILESS_MAIN(tst_common_ComponentsCommandLines)
#include "tst_common_ComponentsCommandLines.moc"
