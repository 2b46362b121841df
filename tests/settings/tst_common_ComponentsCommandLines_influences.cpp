// SPDX-License-Identifier: MIT
#include "CommandLineLists.h"

#include <SettingsFolders.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QtTest>

#include <vector>

namespace {

// clang-format off
/// A property that changes, and the lists that change with it.
struct Influence
{
    const char* name;
    Assignments before;
    Assignment change;
    std::vector<int> changed;
};
// clang-format on

// clang-format off
const std::vector<Influence>& influences()
{
    static const std::vector<int> solver = {Sequential, SequentialRemote, Parallel, ParallelRemote};
    static const std::vector<Influence> table = {
        {"prekest's free text",      everything(), {prekestFree, "-b"},           {Prekest}},
        {"check only",               everything(), {checkOnly, false},            solver},
        {"priority",                 everything(), {priority, 3},                 solver},
        {"GPU use",                  everything(), {gpuUse, false},               solver},
        {"host",                     everything(), {host, "node8"},               {Remote}},
        {"host that goes",           everything(), {host, ""},                    {SequentialRemote, ParallelRemote, Remote, HostSpecified}},
        {"host that goes, by ssh",   {{host, "node"}, {method, 0}}, {host, ""},   {Remote, HostSpecified}},
        {"method",                   everything(), {method, 0},                   {SequentialRemote, ParallelRemote}},
        {"method without host",      {},           {method, 0},                   {}},
        {"specify processes",        everything(), {specifyParallel, false},      {Parallel, ParallelRemote}},
        {"ignore errors",            everything(), {prekestErrors, false},        {Prekest}},
        {"processes",                everything(), {parallelCount, 13},           {Parallel, ParallelRemote}},
        {"processes unspecified",    {},           {parallelCount, 13},           {}},
        {"shared memory",            everything(), {"Kest.UseSharedMemory", true}, {}},
        {"shared memory alone",      {},           {"Kest.UseSharedMemory", true}, {}},
        {"statistics",               everything(), {statistics, 0},               {Environment}},
        {"authentication",           everything(), {authentication, 3},           {Parallel, ParallelRemote}},
        {"local only",               everything(), {authentication, 2},           {Parallel, ParallelRemote, LocalOnly}},
        {"solver's free text",       everything(), {kestFree, "--bar"},           solver},
        {"adaptkest restarts",       everything(), {adaptRestart, false},         {Adaptkest}},
        {"adaptkest's number",       everything(), {adaptNumber, 4},              {Adaptkest}},
        {"adaptkest's number alone", {},           {adaptNumber, 4},              {}},
        {"adaptkest deletes",        everything(), {adaptDelete, true},           {Adaptkest}},
        {"variables",                everything(), {prekestStdOut, false},        {Prekest}},
        {"optkest restarts",         everything(), {optRestart, false},           {Optkest}},
        {"optkest's run",            everything(), {optRun, 4},                   {Optkest}},
        {"optkest's run alone",      {},           {optRun, 4},                   {}},
        {"optkest deletes",          everything(), {optDelete, false},            {Optkest}},
        {"optkest's companion",      everything(), {optSpecify, false},           {}},
        {"optkest's processes",      everything(), {optCount, 5},                 {Optkest}},
        {"environment",              everything(), {variables, "A=2"},            {Environment}},
        {"GPU note",                 {},           {gpuNote, true},               solver},
        {"GPU note while in use",    everything(), {gpuNote, true},               {}},
        {"GPU count",                everything(), {gpuCount, "3"},               solver},
        {"GPU count without use",    {},           {gpuCount, "3"},               {}},
        {"GPU list",                 everything(), {gpuList, "1"},                solver},
        {"GPU list without use",     {},           {gpuList, "1"},                {}},
        {"variables to out file",    everything(), {prekestOut, false},           {Prekest}},
        {"details",                  everything(), {"RunDetailsShown", true},     {}},
        {"circuit files",            everything(), {circuitFiles, false},         solver},
        {"threshold",                everything(), {amrThreshold, 2},             {Amrkest}},
        {"frequency",                everything(), {amrFrequency, "2e9"},         {Amrkest}},
        {"frequency alone",          {},           {amrFrequency, "2e9"},         {}},
        {"iterations",               everything(), {amrIterations, 6},            {Amrkest}},
        {"iterations alone",         {},           {amrIterations, 6},            {}},
        {"amrkest's free text",      everything(), {amrFree, "-y"},               {Amrkest}},
        {"specify frequency",        everything(), {amrSpecifyFrequency, false},  {Amrkest}},
        {"specify iterations",       everything(), {amrSpecifyIterations, false}, {Amrkest}},
        {"amrkest deletes",          everything(), {amrDelete, true},             {Amrkest}},
        {"amrkest's final solve",    everything(), {amrSkip, false},              {Amrkest}},
        {"run parallel",             everything(), {"RunParallel", false},        {}},
        {"farm out",                 everything(), {"FarmOut", false},            {}},
        {"run remote",               everything(), {"RunRemote", false},          {}},
        {"time solver deletes",      everything(), {"Timekest.DeleteTempFiles", true}, {}},
    };
    return table;
}
// clang-format on

} // namespace

class tst_common_ComponentsCommandLines_influences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesTheListsThatReadTheOptionAndNoOthers_data()
    {
        QTest::addColumn<int>("number");
        for (std::size_t number = 0; number < influences().size(); ++number) {
            QTest::newRow(influences()[number].name) << int(number);
        }
    }

    void changesTheListsThatReadTheOptionAndNoOthers()
    {
        QFETCH(int, number);
        const Influence& row = influences()[std::size_t(number)];
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        assign(*options, row.before);
        const std::vector<QStringList> before = allLists(*options);
        assign(*options, {row.change});
        const std::vector<QStringList> after = allLists(*options);
        std::vector<int> changed;
        for (int getter = 0; getter < getterCount; ++getter) {
            if (after[std::size_t(getter)] != before[std::size_t(getter)]) {
                changed.push_back(getter);
            }
        }
        QCOMPARE(changed, row.changed);
    }

    void hasTriedEveryOption()
    {
        QStringList tried;
        for (const Influence& row : influences()) {
            tried.append(QLatin1String(row.change.key));
        }
        tried.removeDuplicates();
        tried.sort();
        QCOMPARE(tried.size(), 41);
        QStringList registered = common_PropertyFactory::names();
        registered.removeOne(QStringLiteral("3DMouseSensitivity"));
        registered.sort();
        QCOMPARE(tried, registered);
    }
};

QTEST_GUILESS_MAIN(tst_common_ComponentsCommandLines_influences)
#include "tst_common_ComponentsCommandLines_influences.moc"
