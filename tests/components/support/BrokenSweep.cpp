// SPDX-License-Identifier: MIT
#include "BrokenSweep.h"

#include <Text.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

namespace {

constexpr int patience = 30000; // ms
constexpr unsigned long pause = 5;

struct Results
{
    QByteArray output;
    QByteArray table;
};

Results resultsIn(const MarkedRuns& runs)
{
    return {readFile(runs.path(text("m.out"))), readFile(runs.path(text("m.csv")))};
}

// Made once in each test program.
const Results& unbrokenResults()
{
    static const Results results = [] {
        const BrokenSweep sweep;
        sweep.run({}, sweep.environment());
        return resultsIn(sweep);
    }();
    return results;
}

} // namespace

BrokenSweep::BrokenSweep()
{
    writeFile(folder(), text("m.nec"), model());
}

QByteArray BrokenSweep::model()
{
    QStringList cards = dipoleCards();
    cards.replaceInStrings(text("FR 0 3"), text("FR 0 12"));
    return deckOf(cards);
}

SuiteResult BrokenSweep::run(const QStringList& options,
                             const QProcessEnvironment& environment) const
{
    return runSuite(runkestProgram(), QStringList(text("m")) + options, folder(), environment);
}

SuiteResult BrokenSweep::resume(const QStringList& options) const
{
    return run(QStringList(text("--resume")) + options, environment());
}

void BrokenSweep::start(QProcess& process, const QStringList& options,
                        const QProcessEnvironment& environment) const
{
    process.setWorkingDirectory(folder());
    process.setProcessEnvironment(environment);
    process.start(runkestProgram(), QStringList(text("m")) + options);
    process.waitForStarted();
}

QByteArray BrokenSweep::partial() const
{
    return readFile(path(text("m.partial")));
}

int BrokenSweep::keptRows() const
{
    return qMax(0, partial().count('\n') - headerLines);
}

bool BrokenSweep::waitForRows(int least) const
{
    const QDeadlineTimer deadline(patience);
    while (keptRows() < least && !deadline.hasExpired()) {
        QThread::msleep(pause);
    }
    return keptRows() >= least;
}

bool BrokenSweep::keepSome()
{
    QProcess process;
    start(process, {text("-np"), text("2")}, slowEnvironment(0.1));
    const bool isKept = waitForRows(3);
    process.kill();
    return isKept && process.waitForFinished() && waitForEnd() && keptRows() < frequencies;
}

QProcessEnvironment BrokenSweep::scriptEnvironment(const QByteArray& script) const
{
    const QString engine = writeFile(folder(), text("engine"), "#!/bin/sh\n" + script);
    QFile::setPermissions(engine, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment result = environment();
    result.insert(text("KEST_NEC2C"), engine);
    return result;
}

QString BrokenSweep::difference() const
{
    const Results& expected = unbrokenResults();
    const Results found = resultsIn(*this);
    if (expected.table.count('\n') != 1 + frequencies || expected.output.isEmpty()) {
        return text("the unbroken run has no results");
    }
    if (found.table != expected.table) {
        return text("the table is different");
    }
    if (found.output != expected.output) {
        return text("the output is different");
    }
    return QFile::exists(path(text("m.partial"))) ? text("partial results are left") : QString();
}
