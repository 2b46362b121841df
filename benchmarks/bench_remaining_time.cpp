// SPDX-License-Identifier: MIT
// How well the remaining time of runs is estimated: the components solve models for real, once
// without earlier runs and once with the first run as an earlier one, and courses of long runs are
// replayed. Arguments name the models, by default all. Prints the ratio of the estimated to the
// true remaining time at tenths of the duration; "-" where no figure would be shown.
#include <MachinesFile.h>
#include <MarkerLine.h>
#include <PaceHistory.h>
#include <ProcessCount.h>
#include <RecordJournal.h>
#include <RunArchive.h>
#include <RunPace.h>
#include <RunSize.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QThread>

#include <cmath>
#include <cstdio>
#include <functional>

namespace {

using Type = RecordedMessage::Type;

constexpr double goal = 0.2;

/// What a run has printed, and how long it took.
struct Course
{
    QVector<RecordedMessage> messages;
    qint64 duration = 0; ///< milliseconds
};

/// A model with as many frequencies as take ten seconds and more.
struct MeasuredModel
{
    const char* name;
    int frequencies;
};

constexpr MeasuredModel models[] = {
    {"dipole", 9000}, {"yagi", 5000}, {"coarse", 6000}, {"monopole", 400}, {"wall", 400},
};

// Fifteen dipoles side by side: 315 segments.
constexpr char wallDeck[] = "CM Fifteen dipoles\n"
                            "CE\n"
                            "GW 1 21 0 0 -0.25 0 0 0.25 0.001\n"
                            "GM 1 14 0 0 0 0.2 0 0 1\n"
                            "GE 0\n"
                            "FR 0 31 0 0 250 2\n"
                            "EX 0 1 11 0 1 0\n"
                            "XQ\n"
                            "EN\n";

QByteArray deckOf(const MeasuredModel& model)
{
    QByteArray deck = wallDeck;
    QFile file(QStringLiteral(KEST_SUITE "/models/%1.nec").arg(QLatin1String(model.name)));
    if (file.open(QIODevice::ReadOnly)) {
        deck = file.readAll();
    }
    const QRegularExpression card(QStringLiteral("^FR 0 (\\d+) 0 0 (\\S+) (\\S+)"),
                                  QRegularExpression::MultilineOption);
    const QString text = QString::fromLatin1(deck);
    const QRegularExpressionMatch match = card.match(text);
    const double range = (match.captured(1).toInt() - 1) * match.captured(3).toDouble();
    const QString longer = QStringLiteral("FR 0 %1 0 0 %2 %3")
                               .arg(model.frequencies)
                               .arg(match.captured(2))
                               .arg(range / (model.frequencies - 1), 0, 'g', 12);
    return QString(text).replace(card, longer).toLatin1();
}

// Of other lines only the time is of interest, and not even that.
void append(Course& course, const QByteArray& line, qint64 time)
{
    const suite::MarkerLine read = suite::MarkerLine::parse(line);
    if (read.marker == suite::Marker::Percentage) {
        course.messages.append({time, Type::Percentage, QString::number(read.percentage())});
    } else if (read.marker == suite::Marker::TotalPercentage) {
        course.messages.append({time, Type::TotalPercentage, QString::number(read.percentage())});
    }
}

Course solve(const QString& model, const QStringList& arguments)
{
    Course course;
    QProcess process;
    QElapsedTimer clock;
    clock.start();
    process.start(QStringLiteral(KEST_SUITE "/bin/runkest"), QStringList(model) + arguments);
    while (process.state() != QProcess::NotRunning) {
        process.waitForReadyRead(100);
        while (process.canReadLine()) {
            append(course, process.readLine().trimmed(), clock.elapsed());
        }
    }
    course.duration = clock.elapsed();
    if (process.exitCode() != 0) {
        qFatal("%s cannot be solved", qPrintable(model));
    }
    return course;
}

double nan()
{
    return std::numeric_limits<double>::quiet_NaN();
}

// The ratios at 10 % to 90 % of the duration.
QVector<double> ratios(const Course& course, const PaceExpectation& expectation)
{
    QVector<double> result;
    RunPace pace;
    pace.expect(expectation);
    int next = 0;
    for (int tenth = 1; tenth < 10; ++tenth) {
        const qint64 now = course.duration * tenth / 10;
        while (next < course.messages.size() && course.messages[next].time <= now) {
            const RecordedMessage& message = course.messages[next++];
            pace.add(message.time, message.type, message.text);
        }
        const auto estimate = pace.remaining(now);
        const bool isShown = estimate && estimate->isReliable();
        const auto left = static_cast<double>(course.duration - now);
        result.append(isShown ? estimate->remaining / left : nan());
    }
    return result;
}

/// Counts the estimates that met the goal.
class Table
{
public:
    Table()
    {
        std::printf("| run | earlier runs |");
        for (int tenth = 1; tenth < 10; ++tenth) {
            std::printf(" %d %% |", 10 * tenth);
        }
        std::printf("\n|---|---|---|---|---|---|---|---|---|---|---|\n");
    }

    void add(const QString& run, const char* history, const QVector<double>& values)
    {
        std::printf("| %s | %s |", qPrintable(run), history);
        for (const double value : values) {
            ++m_all;
            m_good += std::abs(value - 1) <= goal ? 1 : 0;
            m_shown += std::isnan(value) ? 0 : 1;
            std::printf(std::isnan(value) ? " - |" : " %.2f |", value);
        }
        std::printf("\n");
        std::fflush(stdout);
    }

    void end() const
    {
        std::printf("\n%d of %d estimates were shown, and %d were within %.0f %% of the truth.\n",
                    m_shown, m_all, m_good, 100 * goal);
    }

private:
    int m_all = 0;
    int m_shown = 0;
    int m_good = 0;
};

RunRecord recordOf(const QString& model, const QStringList& arguments)
{
    RunRecord record;
    record.component = QStringLiteral("runkest");
    record.model = model;
    record.arguments = arguments;
    record.host = QSysInfo::machineHostName();
    record.cores = QThread::idealThreadCount();
    record.started = QDateTime::currentDateTimeUtc();
    return record;
}

void keep(const RunArchive& archive, RunRecord record, const Course& course)
{
    const RunArchive::Addition added = archive.add(record, QString());
    RecordJournal journal(added.folder, 1 << 24);
    record.state = RunRecord::State::Valid;
    record.duration = course.duration;
    record.ended = record.started.addMSecs(course.duration);
    if (!journal.write(course.messages) || !journal.finish(record)) {
        qFatal("the record cannot be written: %s", qPrintable(journal.reason()));
    }
}

PaceExpectation expectationOf(const RunArchive& archive, const RunRecord& record)
{
    const std::atomic<bool> isCancelled(false);
    RunSize size = RunSize::of(record);
    size.processes = ProcessCount::of(record.arguments, suite::MachinesFile::parse({}));
    size.readModel();
    return PaceHistory::expectation(archive, size, isCancelled);
}

void measure(Table& table, const MeasuredModel& model, bool isParallel)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QLatin1String(model.name) + QStringLiteral(".nec"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(deckOf(model)) < 0 || !file.flush()) {
        qFatal("the model cannot be written");
    }
    const QStringList arguments =
        isParallel
            ? QStringList{QStringLiteral("-np"), QStringLiteral("2"),
                          QStringLiteral("--parallel-authenticate"), QStringLiteral("localonly")}
            : QStringList();
    const QString title =
        QStringLiteral("%1, %2 frequencies, %3")
            .arg(QLatin1String(model.name))
            .arg(model.frequencies)
            .arg(isParallel ? QStringLiteral("2 ranks") : QStringLiteral("serial"));
    const RunArchive archive(folder.filePath(QStringLiteral("runs")));
    const RunRecord record = recordOf(path, arguments);
    const Course first = solve(path, arguments);
    table.add(title, "none", ratios(first, expectationOf(archive, record)));
    keep(archive, record, first);
    const Course second = solve(path, arguments);
    table.add(title, "one", ratios(second, expectationOf(archive, record)));
}

// A check of 20 s, then as many steps, each taking what the function says.
Course replay(int steps, const std::function<double(double)>& seconds)
{
    Course course;
    course.messages.append({20000, Type::Percentage, QStringLiteral("0")});
    course.messages.append({20000, Type::TotalPercentage, QStringLiteral("5")});
    double time = 20;
    for (int step = 1; step <= steps; ++step) {
        time += seconds(static_cast<double>(step) / steps);
        const auto now = static_cast<qint64>(1000 * time);
        course.messages.append({now, Type::Percentage, QString::number(100 * step / steps)});
        course.messages.append(
            {now, Type::TotalPercentage, QString::number(5 + 90 * step / steps)});
    }
    course.duration = static_cast<qint64>(1000 * time) + 5000;
    return course;
}

void replayLongRuns(Table& table)
{
    PaceExpectation first;
    table.add(QStringLiteral("replay, 2 h, constant pace"), "none",
              ratios(replay(200, [](double) { return 36.; }), first));
    table.add(QStringLiteral("replay, 3 h, each frequency dearer, in the end twice"), "none",
              ratios(replay(200, [](double x) { return 36 * (1 + x); }), first));
    table.add(
        QStringLiteral("replay, 2 h, uneven steps"), "none",
        ratios(replay(200, [](double x) { return 36 * (1 + 0.5 * std::sin(1000 * x)); }), first));
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList wanted = QCoreApplication::arguments().mid(1);
    Table table;
    for (const MeasuredModel& model : models) {
        if (wanted.isEmpty() || wanted.contains(QLatin1String(model.name))) {
            measure(table, model, false);
            measure(table, model, true);
        }
    }
    replayLongRuns(table);
    table.end();
    return 0;
}
