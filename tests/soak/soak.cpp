// SPDX-License-Identifier: MIT
// Runs and dialogs for hours in one process, with what the process holds before and after: resident
// memory, descriptors, children, files in its temporary folder. Ends with 1 when something is lost,
// left behind, or grows.
//
//   kest_soak [--minutes M] [--runs N] [--at-once N] [--lines N]        (scripts/soak: for two
//   hours)
//
// Each round is N runs one after another, each with a dialog of its own, then as many runs at once
// as are asked for, then one dialog in a batch run that takes the lines. Rounds begin until the
// minutes are over; there is always one.
#include <DialogStage.h>

#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTextDocument>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include <malloc.h>
#include <unistd.h>

namespace {

constexpr int linesOfRun = 1000;

// What is cached once, by fonts above all, is no leak. It is there after the first round.
constexpr double allowedGrowth = 8.0;

struct Holdings
{
    double megabytes = 0;
    int descriptors = 0;
    int children = 0;
    int files = 0;

    // What the allocator keeps for later is not held.
    static Holdings now()
    {
        malloc_trim(0);
        QFile statm(QStringLiteral("/proc/self/statm"));
        QFile list(QStringLiteral("/proc/self/task/%1/children").arg(getpid()));
        Holdings result;
        if (statm.open(QIODevice::ReadOnly)) {
            const double pages = statm.readAll().split(' ').value(1).toDouble();
            result.megabytes = pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
        }
        if (list.open(QIODevice::ReadOnly)) {
            result.children = list.readAll().count(' '); // one behind each
        }
        const auto all = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System;
        result.descriptors = QDir(QStringLiteral("/proc/self/fd")).entryList(all).size();
        result.files = QDir::temp().entryList(all).size();
        return result;
    }

    void print(const char* when) const
    {
        std::printf("%-28s %8.1f MB %4d descriptors %3d children %4d files\n", when, megabytes,
                    descriptors, children, files);
        std::fflush(stdout);
    }
};

bool isComplete(const DialogStage& stage, int lines)
{
    return stage.ok()->isEnabled() && stage.output()->document()->blockCount() == lines;
}

void processEventsUntilEnded(const DialogStage& stage)
{
    while (!stage.ok()->isEnabled()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

QStringList solverLines(int count)
{
    return {QStringLiteral("solver-lines"), QString::number(count)};
}

// Returns how many were lost.
int runOneAfterAnother(int runs)
{
    int lost = 0;
    for (int run = 0; run < runs; ++run) {
        const DialogStage stage;
        if (run % 2 == 1) {
            stage.openDetails();
        }
        stage.run(solverLines(linesOfRun));
        processEventsUntilEnded(stage);
        lost += isComplete(stage, linesOfRun) ? 0 : 1;
    }
    return lost;
}

int runAtOnce(int runs)
{
    std::vector<std::unique_ptr<DialogStage>> stages;
    for (int run = 0; run < runs; ++run) {
        stages.push_back(std::make_unique<DialogStage>());
        stages.back()->run(solverLines(linesOfRun));
    }
    int lost = 0;
    for (const auto& stage : stages) {
        processEventsUntilEnded(*stage);
        lost += isComplete(*stage, linesOfRun) ? 0 : 1;
    }
    return lost;
}

int runInBatch(int lines)
{
    DialogStage stage;
    stage.application.nonInteractive = true;
    stage.run(solverLines(lines));
    processEventsUntilEnded(stage);
    std::printf("%-28s %8.1f MB\n", "    with the lines", Holdings::now().megabytes);
    return isComplete(stage, lines) && !stage.dialog->isVisible() ? 0 : 1;
}

struct Counts
{
    int runs = 0;
    int atOnce = 0;
    int lines = 0;
};

int soakOnce(const Counts& counts)
{
    const int lostOneByOne = runOneAfterAnother(counts.runs);
    Holdings::now().print("    after runs");
    const int lostAtOnce = runAtOnce(counts.atOnce);
    Holdings::now().print("    after runs at once");
    const int lostInBatch = runInBatch(counts.lines);
    Holdings::now().print("    after lines in batch");
    return lostOneByOne + lostAtOnce + lostInBatch;
}

bool isLike(const Holdings& before, const Holdings& after)
{
    return after.descriptors == before.descriptors && after.children == before.children &&
           after.files == before.files && after.megabytes <= before.megabytes + allowedGrowth;
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions(
        {{QStringLiteral("minutes"), QString(), QStringLiteral("M"), QStringLiteral("0")},
         {QStringLiteral("runs"), QString(), QStringLiteral("N"), QStringLiteral("2000")},
         {QStringLiteral("at-once"), QString(), QStringLiteral("N"), QStringLiteral("50")},
         {QStringLiteral("lines"), QString(), QStringLiteral("N"), QStringLiteral("10000000")}});
    parser.process(application);
    const auto value = [&parser](const char* name) {
        return parser.value(QLatin1String(name)).toInt();
    };
    const Counts counts = {value("runs"), value("at-once"), value("lines")};
    constexpr qint64 millisecondsOfMinute = 60000;
    const qint64 wanted = value("minutes") * millisecondsOfMinute;

    QElapsedTimer clock;
    clock.start();
    Holdings::now().print("at the start");
    int lost = soakOnce(counts);
    const Holdings first = Holdings::now();
    first.print("after the first round");
    int rounds = 1;
    while (clock.elapsed() < wanted) {
        lost += soakOnce(counts);
        ++rounds;
    }
    const Holdings last = Holdings::now();
    last.print("at the end");
    std::printf("%d rounds in %.0f minutes: %d runs, of which %d lost something\n", rounds,
                static_cast<double>(clock.elapsed()) / millisecondsOfMinute,
                rounds * (counts.runs + counts.atOnce + 1), lost);
    return lost == 0 && isLike(first, last) ? 0 : 1;
}
