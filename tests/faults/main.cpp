// SPDX-License-Identifier: MIT
// Brings about each fault of a table by running the test functions that the table names, and says
// which were survived.
//
//   kest_faults [--short] [--markdown FILE] [--table FILE] [--programs FILE] [--count N]
//
// Exit code: 0 when every fault was tried and survived, 1 when one was lost or not tried, 2 when
// the table is wrong; nothing is run then.
#include "FaultReport.h"
#include "FaultTable.h"
#include "TestPrograms.h"
#include "TestRun.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>

#include <cstdio>

namespace {

constexpr int wrongTable = 2;

struct Settings
{
    QString table;
    QString programs;
    QString markdown; ///< the file for it; empty for none
    int faults = 0;
    bool isShort = false;

    /// How many tests of a fault are run; 0 for all.
    int testsOfFault() const { return isShort ? 1 : 0; }
};

Settings settingsOf(const QCoreApplication& application)
{
    const QCommandLineOption isShort(QStringLiteral("short"),
                                     QStringLiteral("Only the first test of each fault."));
    const QCommandLineOption markdown(
        QStringLiteral("markdown"),
        QStringLiteral("Write the table for a page into this file, too."), QStringLiteral("file"));
    const QCommandLineOption table(QStringLiteral("table"), QStringLiteral("The faults."),
                                   QStringLiteral("file"), QStringLiteral(KEST_FAULT_TABLE));
    const QCommandLineOption programs(QStringLiteral("programs"),
                                      QStringLiteral("The test programs."), QStringLiteral("file"),
                                      QStringLiteral(KEST_TEST_PROGRAMS));
    const QCommandLineOption count(QStringLiteral("count"), QStringLiteral("How many faults."),
                                   QStringLiteral("number"), QStringLiteral("51"));
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({isShort, markdown, table, programs, count});
    parser.process(application);
    return {parser.value(table), parser.value(programs), parser.value(markdown),
            parser.value(count).toInt(), parser.isSet(isShort)};
}

/// The tests to run, by program.
QMap<QString, QVector<FaultTest>> testsToRun(const QVector<Fault>& faults, const Settings& settings)
{
    QMap<QString, QVector<FaultTest>> tests;
    for (const Fault& fault : faults) {
        const QVector<FaultTest> some = settings.isShort ? fault.tests.mid(0, 1) : fault.tests;
        for (const FaultTest& test : some) {
            tests[test.program].append(test);
        }
    }
    return tests;
}

/// What the table names that is not there.
QStringList unknownTests(const QVector<Fault>& faults, const TestPrograms& programs)
{
    QStringList errors;
    QMap<QString, QStringList> functions;
    for (const Fault& fault : faults) {
        for (const FaultTest& test : fault.tests) {
            const TestProgram* const program = programs.find(test.program);
            if (program == nullptr) {
                errors.append(QStringLiteral("fault %1: there is no test program %2")
                                  .arg(fault.number)
                                  .arg(test.program));
                continue;
            }
            if (!functions.contains(test.program)) {
                functions.insert(test.program, functionsOf(*program));
            }
            if (!functions.value(test.program).contains(test.function)) {
                errors.append(QStringLiteral("fault %1: %2 has no function %3")
                                  .arg(fault.number)
                                  .arg(test.program, test.function));
            }
        }
    }
    return errors;
}

QMap<QString, TestRun> runAll(const QMap<QString, QVector<FaultTest>>& tests,
                              const TestPrograms& programs, bool isFull)
{
    QMap<QString, TestRun> runs;
    for (auto each = tests.cbegin(); each != tests.cend(); ++each) {
        QElapsedTimer timer;
        timer.start();
        runs.insert(each.key(), runTests(*programs.find(each.key()), each.value(), isFull));
        std::fprintf(stderr, "%6.1f s  %s\n", double(timer.elapsed()) / 1000,
                     qPrintable(each.key()));
    }
    return runs;
}

bool write(const QString& path, const QString& text)
{
    QFile file(path);
    const QByteArray content = text.toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush()) {
        return true;
    }
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return false;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const Settings settings = settingsOf(application);
    const FaultTable table = FaultTable::read(settings.table);
    const TestPrograms programs = TestPrograms::read(settings.programs);
    const QStringList errors = table.errors() + table.numberingErrors(settings.faults) +
                               unknownTests(table.faults(), programs);
    if (!errors.isEmpty()) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(settings.table),
                     qPrintable(errors.join(QLatin1Char('\n'))));
        return wrongTable;
    }
    const FaultReport report(
        table.faults(), runAll(testsToRun(table.faults(), settings), programs, !settings.isShort),
        settings.testsOfFault());
    std::fputs(qPrintable(report.text()), stdout);
    const bool isWritten =
        settings.markdown.isEmpty() || write(settings.markdown, report.markdown());
    return report.isGood() && isWritten ? 0 : 1;
}
