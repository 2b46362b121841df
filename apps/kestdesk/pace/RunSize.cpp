// SPDX-License-Identifier: MIT
#include "RunSize.h"

#include "RunRecord.h"

#include <InputFile.h>
#include <Preprocessor.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 largestModel = 64 << 20;
constexpr double segmentsExponent = 2; // between that of filling a matrix and that of solving it
constexpr double alikeSegments = 0.2;  // as a logarithm

// Standard deviations of the duration, as parts of it.
constexpr double repetitionSpread = 0.2;
constexpr double otherModelSpread = 0.1;
constexpr double otherPlaceSpread = 0.7;
constexpr double segmentsSpread = 1;    // for e times as many
constexpr double processesSpread = 0.5; // for e times as many

// Components whose number of steps depends on their results.
const char* const openEndedComponents[] = {"optkest", "amrkest"};

// Arguments that make a component continue from earlier results.
const char* const continuingWords[] = {"--restart", "--resume"};

double logarithm(int value, int earlier)
{
    return value > 0 && earlier > 0 ? std::log(static_cast<double>(value) / earlier) : 0;
}

bool hasAny(const QStringList& arguments, const char* const* begin, const char* const* end)
{
    return std::any_of(begin, end, [&arguments](const char* word) {
        return arguments.contains(QLatin1String(word));
    });
}

// The host that the run was started for, or this one.
QString placeOf(const RunRecord& record)
{
    const int remote = record.arguments.indexOf(QStringLiteral("--remote-host"));
    return remote >= 0 ? QStringLiteral("remote ") + record.arguments.value(remote + 1)
                       : QStringLiteral("%1, %2 cores").arg(record.host).arg(record.cores);
}

} // namespace

RunSize RunSize::of(const RunRecord& record)
{
    RunSize result;
    result.component = record.component;
    result.model = record.model;
    result.place = placeOf(record);
    result.segments = record.segments;
    result.frequencies = record.frequencies;
    result.processes = record.processes;
    result.isContinued =
        hasAny(record.arguments, std::begin(continuingWords), std::end(continuingWords));
    return result;
}

void RunSize::readModel()
{
    if (const auto bytes = suite::InputFile(model).read(largestModel)) {
        const suite::Model read = suite::Preprocessor(*bytes).model();
        segments = read.structure.segmentCount();
        frequencies = read.frequencies.count;
        isAdaptive = read.adaptive.isWanted;
    }
}

bool RunSize::isOpenEnded() const
{
    return isAdaptive ||
           std::any_of(std::begin(openEndedComponents), std::end(openEndedComponents),
                       [this](const char* name) { return component == QLatin1String(name); });
}

bool RunSize::isSimilarTo(const RunSize& earlier) const
{
    const bool isKnown = segments > 0 && frequencies > 0;
    return component == earlier.component && (isKnown || model == earlier.model) &&
           frequencies == earlier.frequencies &&
           std::abs(logarithm(segments, earlier.segments)) <= alikeSegments;
}

double RunSize::ratio(const RunSize& earlier) const
{
    return std::exp(segmentsExponent * logarithm(segments, earlier.segments) +
                    logarithm(frequencies, earlier.frequencies) -
                    logarithm(processes, earlier.processes));
}

double RunSize::spread(const RunSize& earlier) const
{
    const double parts[] = {repetitionSpread, model == earlier.model ? 0 : otherModelSpread,
                            place == earlier.place ? 0 : otherPlaceSpread,
                            segmentsSpread * logarithm(segments, earlier.segments),
                            processesSpread * logarithm(processes, earlier.processes)};
    double squares = 0;
    for (const double part : parts) {
        squares += part * part;
    }
    return std::sqrt(squares);
}
