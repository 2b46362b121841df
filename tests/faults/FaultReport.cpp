// SPDX-License-Identifier: MIT
#include "FaultReport.h"

#include <algorithm>

namespace {

QString cell(int number)
{
    return QStringLiteral("%1").arg(number, 9);
}

QString lineOf(const QString& number, const QString& name, const QString& numbers)
{
    constexpr int widthOfNames = 72;
    const bool isLong = name.size() > widthOfNames;
    const QString shown = isLong ? name.left(widthOfNames - 3) + QStringLiteral("...") : name;
    return QStringLiteral("%1  %2%3\n").arg(number, 3).arg(shown, -widthOfNames).arg(numbers);
}

/// Text that does not end a cell of a table.
QString inCell(QString text)
{
    return text.replace(QLatin1Char('|'), QStringLiteral("\\|"));
}

} // namespace

FaultReport::FaultReport(const QVector<Fault>& faults, const QMap<QString, TestRun>& runs,
                         int testsOfFault)
{
    for (const Fault& fault : faults) {
        m_rows.append(rowOf(fault, runs, testsOfFault));
    }
}

FaultReport::Row FaultReport::rowOf(const Fault& fault, const QMap<QString, TestRun>& runs,
                                    int testsOfFault)
{
    Row row;
    row.fault = fault;
    QStringList failed;
    const QVector<FaultTest> tests =
        testsOfFault > 0 ? fault.tests.mid(0, testsOfFault) : fault.tests;
    for (const FaultTest& test : tests) {
        const TestRun run = runs.value(test.program);
        add(row, test, run);
        if (!run.failure.isEmpty() && !failed.contains(test.program)) {
            failed.append(test.program);
            ++row.lost;
            row.losses.append(test.program + QStringLiteral(": ") + run.failure);
        }
    }
    return row;
}

void FaultReport::add(Row& row, const FaultTest& test, const TestRun& run)
{
    const QVector<TestCase> cases = run.casesOf(test);
    for (const TestCase& each : cases) {
        const FaultTest tried = {test.program, each.function, each.row};
        const QString told =
            QStringLiteral("%1 %2: %3").arg(test.program, tried.word(), each.message);
        switch (each.outcome) {
        case TestCase::Outcome::Survived:
            ++row.survived;
            break;
        case TestCase::Outcome::Lost:
            ++row.lost;
            row.losses.append(told);
            break;
        case TestCase::Outcome::Skipped:
            ++row.skipped;
            row.skips.append(told);
            break;
        }
    }
}

QString FaultReport::text() const
{
    const QString heading = QStringLiteral("%1%2%3%4")
                                .arg(QStringLiteral("tried"), 9)
                                .arg(QStringLiteral("survived"), 9)
                                .arg(QStringLiteral("lost"), 9)
                                .arg(QStringLiteral("skipped"), 9);
    QString text = lineOf(QString(), QStringLiteral("fault"), heading);
    QString told;
    for (const Row& row : m_rows) {
        text += lineOf(QString::number(row.fault.number), row.fault.name,
                       cell(row.tried()) + cell(row.survived) + cell(row.lost) + cell(row.skipped));
        for (const QString& loss : row.losses) {
            told += QStringLiteral("lost, fault %1: %2\n").arg(row.fault.number).arg(loss);
        }
        for (const QString& skip : row.skips) {
            told += QStringLiteral("skipped, fault %1: %2\n").arg(row.fault.number).arg(skip);
        }
        if (row.tried() == 0) {
            told += QStringLiteral("fault %1 was not tried\n").arg(row.fault.number);
        }
    }
    return text + totals() + QLatin1Char('\n') + told;
}

QString FaultReport::markdown() const
{
    QString text = QStringLiteral("| | what happens | what is true afterwards | tried | survived | "
                                  "lost |\n|---|---|---|---|---|---|\n");
    for (const Row& row : m_rows) {
        text += QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |\n")
                    .arg(row.fault.number)
                    .arg(inCell(row.fault.name), inCell(row.fault.promise))
                    .arg(row.tried())
                    .arg(row.survived)
                    .arg(row.lost);
    }
    return text + QLatin1Char('\n') + totals();
}

bool FaultReport::isGood() const
{
    return std::all_of(m_rows.cbegin(), m_rows.cend(),
                       [](const Row& row) { return row.isSurvived(); });
}

QString FaultReport::totals() const
{
    int survived = 0;
    int lost = 0;
    int tries = 0;
    int skips = 0;
    for (const Row& row : m_rows) {
        survived += row.isSurvived() ? 1 : 0;
        lost += row.lost > 0 ? 1 : 0;
        tries += row.tried();
        skips += row.skipped;
    }
    return QStringLiteral("%1 of %2 faults survived, %3 lost; %4 cases tried, %5 skipped.\n")
        .arg(survived)
        .arg(m_rows.size())
        .arg(lost == 0 ? QStringLiteral("none") : QString::number(lost))
        .arg(tries)
        .arg(skips);
}
