// SPDX-License-Identifier: MIT
#include "PaceHistory.h"

#include "MessageReader.h"
#include "RecordFolder.h"
#include "RunArchive.h"
#include "RunProgress.h"
#include "RunSize.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int mostRuns = 5;                // averaged at most
constexpr qint64 mostMessages = 256 << 20; // bytes read of one run

struct Candidate
{
    RunRecord record;
    bool isSimilar = false;
    double spread = 0;

    // Sorts the better match first.
    bool operator<(const Candidate& other) const
    {
        return isSimilar != other.isSimilar ? isSimilar : spread < other.spread;
    }
};

// Only complete runs are evaluated.
bool isUsable(const RunRecord& record, const RunSize& size)
{
    return record.state == RunRecord::State::Valid && record.component == size.component &&
           record.duration > 0 && !RunSize::of(record).isContinued;
}

// The best matches, all equally good, the newest first.
QVector<Candidate> bestRuns(const QVector<RunRecord>& records, const RunSize& size)
{
    QVector<Candidate> all;
    for (const RunRecord& record : records) {
        if (isUsable(record, size)) {
            const RunSize earlier = RunSize::of(record);
            all.append({record, size.isSimilarTo(earlier), size.spread(earlier)});
        }
    }
    std::stable_sort(all.begin(), all.end());
    const auto isWorse = [&all](const Candidate& each) { return all.first() < each; };
    all.erase(std::find_if(all.begin(), all.end(), isWorse), all.end());
    return all.mid(0, all.value(0).isSimilar ? mostRuns : 1);
}

// When each total percentage was reached; for those that were never reported, the end.
QVector<double> totalTimes(const RunRecord& record, const std::atomic<bool>& isCancelled)
{
    RunProgress progress;
    MessageReader reader(RecordFolder(record.folder).messagesFile());
    constexpr qint64 piece = 1 << 20;
    const auto take = [&progress](const RecordedMessage& message) {
        progress.add(message.time, message.type, message.text);
    };
    for (qint64 bytes = 0; bytes < mostMessages && !isCancelled; bytes += piece) {
        if (!reader.read(take, piece)) {
            break;
        }
    }
    QVector<double> result;
    for (const qint64 time : progress.totalTimes()) {
        result.append(static_cast<double>(time < 0 ? record.duration : time));
    }
    return result;
}

// The mean of each run's times, scaled to the size of this run.
void average(PaceExpectation& expectation, const QVector<Candidate>& runs, const RunSize& size,
             const std::atomic<bool>& isCancelled)
{
    expectation.totalTimes.fill(0, RunProgress::complete + 1);
    for (const Candidate& run : runs) {
        const double share = size.ratio(RunSize::of(run.record)) / static_cast<double>(runs.size());
        const QVector<double> times = totalTimes(run.record, isCancelled);
        for (int total = 0; total < times.size(); ++total) {
            expectation.totalTimes[total] += share * times[total];
        }
        expectation.duration += share * static_cast<double>(run.record.duration);
    }
}

} // namespace

PaceExpectation PaceHistory::expectation(const RunArchive& archive, const RunSize& size,
                                         const std::atomic<bool>& isCancelled)
{
    PaceExpectation result;
    result.frequencies = size.frequencies;
    result.isOpenEnded = size.isOpenEnded();
    if (size.isContinued) {
        return result;
    }
    const QVector<Candidate> runs = bestRuns(archive.records(), size);
    if (!runs.isEmpty()) {
        using Basis = PaceExpectation::Basis;
        result.basis = runs.first().isSimilar ? Basis::Alike : Basis::OtherSize;
        result.spread = runs.first().spread;
        average(result, runs, size, isCancelled);
    }
    return result;
}
