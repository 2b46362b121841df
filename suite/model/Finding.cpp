// SPDX-License-Identifier: MIT
#include "Finding.h"

#include "PlainText.h"

#include <algorithm>

namespace suite {

namespace {

constexpr int mostErrors = 200;
constexpr int mostFindings = 20000;

struct FindingRow
{
    FindingKind kind;
    int number;
    Severity severity;
    const char* text;
};

// clang-format off
constexpr FindingRow findingTable[] = {
    {FindingKind::BadCommandLine,     2001, Severity::Fatal,   "%1"},
    {FindingKind::ModelMissing,       2011, Severity::Fatal,   "there is no such model file"},
    {FindingKind::ModelIsDirectory,   2012, Severity::Fatal,   "the model is a directory"},
    {FindingKind::ModelUnreadable,    2013, Severity::Fatal,   "the model file cannot be read, %1"},
    {FindingKind::ModelEmpty,         2014, Severity::Fatal,   "the model file holds no card"},
    {FindingKind::ModelTooLarge,      2015, Severity::Fatal,   "the model file is larger than %1 MB"},
    {FindingKind::ModelBinary,        2016, Severity::Fatal,   "the file holds binary data and is no deck of cards"},
    {FindingKind::ByteOrderMark,      2017, Severity::Error,   "the file begins with a byte order mark, which the engine takes for a card"},
    {FindingKind::TooManyErrors,      2099, Severity::Error,   "further errors are not listed"},

    {FindingKind::UnknownCard,        2101, Severity::Error,   "unknown card '%1'"},
    {FindingKind::MissingFields,      2102, Severity::Error,   "card %1 needs at least %2 fields and has %3"},
    {FindingKind::TooManyFields,      2103, Severity::Error,   "card %1 takes at most %2 fields and has %3"},
    {FindingKind::NotNumber,          2104, Severity::Error,   "field %2 of card %1 is not a number but '%3'"},
    {FindingKind::NotInteger,         2105, Severity::Error,   "field %2 of card %1 must be a whole number and is '%3'"},
    {FindingKind::NumberOutOfRange,   2106, Severity::Error,   "field %2 of card %1 is out of range, '%3'"},
    {FindingKind::LineTooLong,        2107, Severity::Error,   "the line has %1 bytes and the engine reads at most %2"},
    {FindingKind::NotAscii,           2108, Severity::Error,   "the card holds characters that are not ASCII"},
    {FindingKind::LeadingBlank,       2109, Severity::Error,   "the card begins with a blank, so the engine would skip it"},
    {FindingKind::UnsupportedCard,    2110, Severity::Error,   "card %1 is not supported by the engine"},

    {FindingKind::CommentsNotEnded,   2201, Severity::Error,   "the comments are not ended by a CE card"},
    {FindingKind::CommentAfterEnd,    2202, Severity::Error,   "comment card %1 stands after the comments' end"},
    {FindingKind::ControlBeforeEnd,   2203, Severity::Error,   "control card %1 stands before the geometry's end (GE)"},
    {FindingKind::GeometryAfterEnd,   2204, Severity::Error,   "geometry card %1 stands after the geometry's end (GE)"},
    {FindingKind::NoGeometryEnd,      2205, Severity::Error,   "there is no GE card to end the geometry"},
    {FindingKind::NoGeometry,         2206, Severity::Error,   "there is no wire and no patch"},
    {FindingKind::NoFrequency,        2207, Severity::Error,   "there is no FR card to set the frequency"},
    {FindingKind::SecondFrequency,    2208, Severity::Error,   "there is a second FR card and a sweep takes one, the first is in line %1"},
    {FindingKind::NoExcitation,       2209, Severity::Error,   "there is no EX card to excite the structure"},
    {FindingKind::NoExecution,        2210, Severity::Error,   "there is no XQ, RP, NE or NH card, so nothing would be computed"},
    {FindingKind::ExecutionTooEarly,  2211, Severity::Error,   "card %1 starts the computation before the first %2 card"},
    {FindingKind::NoEnd,              2212, Severity::Error,   "there is no EN card to end the deck"},
    {FindingKind::TaperWithoutWire,   2213, Severity::Error,   "a GC card must follow a GW card with the radius 0"},
    {FindingKind::PatchContinuation,  2214, Severity::Error,   "%1"},

    {FindingKind::BadDefinition,      2121, Severity::Error,   "card SY takes NAME=VALUE, several separated by commas, and has '%1'"},
    {FindingKind::BadName,            2122, Severity::Error,   "'%1' cannot be the name of a value, %2"},
    {FindingKind::SecondDefinition,   2123, Severity::Error,   "the name %1 has a value already, from line %2"},
    {FindingKind::UnknownName,        2124, Severity::Error,   "%1 uses the name '%2' and no SY card before it gives that a value"},
    {FindingKind::BadExpression,      2125, Severity::Error,   "%1 is no number, name or expression but '%2'"},
    {FindingKind::DivisionByZero,     2126, Severity::Error,   "%1 divides by 0, '%2'"},
    {FindingKind::ValueOutOfRange,    2127, Severity::Error,   "%1 is out of range, '%2'"},
    {FindingKind::TooManyNames,       2128, Severity::Fatal,   "more than %1 names are given values"},

    {FindingKind::BadOptimisation,    2131, Severity::Error,   "the comment must read @optimise NAME FROM LOW TO HIGH, with AT MHZ behind it or not, and is '%1'"},
    {FindingKind::SecondOptimisation, 2132, Severity::Error,   "there is a second @optimise comment, the first is in line %1"},
    {FindingKind::OptimisedNameUnknown, 2133, Severity::Error, "no SY card gives '%1' a value, which is to be optimised"},
    {FindingKind::OptimisedExpression, 2134, Severity::Error,  "the value of %1 is to be optimised and must be a plain number"},
    {FindingKind::BadOptimisationRange, 2135, Severity::Error, "the range to optimise in must go from a lower to a higher value and goes from %1 to %2"},
    {FindingKind::ValueOutsideRange,  2136, Severity::Error,   "%1 is %2, outside the range to optimise in from %3 to %4"},
    {FindingKind::NoOptimisation,     2137, Severity::Fatal,   "%1"},

    {FindingKind::MachinesFileUnusable, 2021, Severity::Fatal, "%1"},
    {FindingKind::EvaluationFailed,   2611, Severity::Fatal,   "%1"},
    {FindingKind::RunFolderUnusable,  2612, Severity::Fatal,   "%1"},
    {FindingKind::RestartImpossible,  2613, Severity::Fatal,   "%1"},
    {FindingKind::TunedAtEdge,        3211, Severity::Warning, "the best value of %1 lies at the edge of the range to optimise in, from %2 to %3"},
    {FindingKind::NoTunedResonance,   3212, Severity::Warning, "the reactance does not pass through 0 and is %1 ohm at best, so this is no resonance"},
    {FindingKind::NotConverged,       3213, Severity::Warning, "the search ended after %1 evaluations before the value was exact"},
    {FindingKind::FarmTooSmall,       3214, Severity::Warning, "%1 evaluations at once were asked for and %3 has room for %2"},
    {FindingKind::TunedValue,          211, Severity::Notice,  "tuned at %3 MHz, %1 = %2"},
    {FindingKind::TunedImpedance,      212, Severity::Notice,  "impedance there %1 ohm resistance, %2 ohm reactance"},
    {FindingKind::EvaluationCount,     213, Severity::Notice,  "number of evaluations %1 in %2 rounds, %3 of them taken over from earlier runs"},

    {FindingKind::BadSegmentCount,    2301, Severity::Error,   "the number of segments must be at least 1 and is %1"},
    {FindingKind::TooManySegments,    2302, Severity::Fatal,   "the structure has more than %1 segments"},
    {FindingKind::ZeroLengthWire,     2303, Severity::Error,   "the wire has no length, both its ends are at one point"},
    {FindingKind::BadRadius,          2304, Severity::Error,   "the wire's radius must be greater than 0 and is %1"},
    {FindingKind::BadTag,             2305, Severity::Error,   "the tag must not be negative and is %1"},
    {FindingKind::BadArc,             2306, Severity::Error,   "%1"},
    {FindingKind::BadHelix,           2307, Severity::Error,   "%1"},
    {FindingKind::BadTransformation,  2308, Severity::Error,   "%1"},
    {FindingKind::WireBelowGround,    2309, Severity::Error,   "the wire %1 the ground plane"},

    {FindingKind::BadFrequency,       2401, Severity::Error,   "the frequency must be greater than 0 and is %1"},
    {FindingKind::BadFrequencyStep,   2402, Severity::Error,   "the frequency step %1 does not lead through %2 different frequencies greater than 0"},
    {FindingKind::BadFrequencyType,   2403, Severity::Error,   "the frequency stepping must be 0 (linear) or 1 (multiplying) and is %1"},
    {FindingKind::TooManyFrequencies, 2404, Severity::Fatal,   "the number of frequencies must be 0 to %2 and is %1"},
    {FindingKind::BadCardType,        2405, Severity::Error,   "card %1 has the unknown type %2"},
    {FindingKind::UnknownTag,         2406, Severity::Error,   "card %1 names tag %2 and no wire has it"},
    {FindingKind::UnknownSegment,     2407, Severity::Error,   "card %1 names segment %2 of tag %3, which has %4 segments"},
    {FindingKind::BadLoadRange,       2408, Severity::Error,   "the load's last segment %2 comes before its first, %1"},
    {FindingKind::BadLoadValue,       2409, Severity::Error,   "%1"},
    {FindingKind::BadLine,            2410, Severity::Error,   "the transmission line's impedance must not be 0"},
    {FindingKind::BadGround,          2411, Severity::Error,   "the ground's relative permittivity must be at least 1 and is %1"},
    {FindingKind::TooManyAngles,      2412, Severity::Fatal,   "card %1 asks for %2 points and the limit is %3"},

    {FindingKind::BadAdaptiveTolerance,  2421, Severity::Error,   "the comment @adapt takes one tolerance from %1 to %2 or none and has '%3'"},
    {FindingKind::SecondAdaptive,        2422, Severity::Error,   "there is a second comment @adapt, the first is in line %1"},
    {FindingKind::AdaptiveWithoutSource, 2423, Severity::Error,   "adaptive sampling looks at the input impedance and there is no voltage source"},
    {FindingKind::RestartRefused,        2721, Severity::Fatal,   "%1"},
    {FindingKind::WorkFolderRefused,     2722, Severity::Fatal,   "%1"},
    {FindingKind::AdaptiveDone,           221, Severity::Notice,  "adaptive sampling took %1 of at most %2 frequencies in %3 analyses"},
    {FindingKind::AdaptiveUsedUp,        3221, Severity::Warning, "all %1 frequencies are used and the curve is not within the tolerance of %2 everywhere"},
    {FindingKind::NotRefinable,          2821, Severity::Fatal,   "card %1 cannot be refined, %2"},
    {FindingKind::RefinedWithoutSource,  2822, Severity::Fatal,   "the refinement compares input impedances and there is no voltage source"},
    {FindingKind::IterationFailed,       2823, Severity::Fatal,   "%1"},
    {FindingKind::FinalSolveFailed,      2824, Severity::Fatal,   "%1"},
    {FindingKind::RefinementConverged,    231, Severity::Notice,  "the refinement converged after %1 iterations, number of segments %2, last change %3 %"},
    {FindingKind::RefinementNotConverged,3231, Severity::Warning, "the refinement did not converge within %1 iterations, %2"},
    {FindingKind::RefinementLimit,       3232, Severity::Warning, "the refinement stopped before it converged, %1"},

    {FindingKind::EngineMissing,      2601, Severity::Fatal,   "%1"},
    {FindingKind::EngineFailed,       2602, Severity::Fatal,   "%1"},
    {FindingKind::EngineResult,       2603, Severity::Fatal,   "%1"},
    {FindingKind::EngineOutput,       2604, Severity::Fatal,   "the engine says, %1"},
    {FindingKind::RemoteRunFailed,    2605, Severity::Fatal,   "%1"},
    {FindingKind::ResultNotWritten,   2701, Severity::Fatal,   "%1"},
    {FindingKind::ResumeRefused,      2702, Severity::Fatal,   "'%1' cannot be resumed from, %2; a run without --resume starts from the beginning"},

    {FindingKind::Stopped,             301, Severity::Notice,  "stopped by %1"},
    {FindingKind::PartialKept,         302, Severity::Notice,  "%1 of %2 frequencies are kept in '%3', --resume computes the rest"},
    {FindingKind::PartialTakenOver,    303, Severity::Notice,  "%1 of %2 frequencies are taken over from '%3'"},
    {FindingKind::PartialDamaged,      304, Severity::Notice,  "%1 damaged lines of '%2' are left out, and their frequencies are computed again"},
    {FindingKind::NothingToResume,     305, Severity::Notice,  "there is nothing to resume, no '%1', and the run starts from the beginning"},
    {FindingKind::PartialReplaced,     306, Severity::Notice,  "the results of an earlier run in '%1' are replaced when the first frequency is solved, %2"},
    {FindingKind::AnalysesKept,        307, Severity::Notice,  "analyses 1 to %1 are kept in '%2', --resume continues from there"},
    {FindingKind::EvaluationsKept,     308, Severity::Notice,  "%1 evaluations are kept in '%2', --restart %3 continues from there"},
    {FindingKind::PartialNotKept,     3605, Severity::Warning, "a stop of this run would keep no results, %1"},

    {FindingKind::LongSegment,        3201, Severity::Warning, "the segments of %1 (%2 m) are longer than a tenth of the shortest wavelength (%3 m)"},
    {FindingKind::ThickSegment,       3202, Severity::Warning, "the segments of %1 (%2 m) are shorter than eight radii (radius %3 m)"},
    {FindingKind::SharedTag,          3203, Severity::Warning, "tag %1 is used by the wire in line %2 too"},
    {FindingKind::IgnoredAfterEnd,    3204, Severity::Warning, "what follows the EN card is ignored"},
    {FindingKind::PlotFileDropped,    3205, Severity::Warning, "the plot file of card PL is not kept"},
    {FindingKind::PriorityNotRaised,  3601, Severity::Warning, "the engines' priority cannot be raised, the permission is missing"},
    {FindingKind::MoreProcesses,      3602, Severity::Warning, "%1 processes were asked for and %3 counts %2, so hosts take more than they should"},
    {FindingKind::SweepRemark,        3603, Severity::Warning, "%1"},
    {FindingKind::HostsOutsideJob,    3604, Severity::Warning, "%1"},

    {FindingKind::WireCount,           101, Severity::Notice,  "number of wires %1, of patch cards %2"},
    {FindingKind::SegmentCount,        102, Severity::Notice,  "number of segments %1"},
    {FindingKind::FrequencyCount,      103, Severity::Notice,  "number of frequencies %1, from %2 MHz to %3 MHz"},
    {FindingKind::WavelengthRange,     104, Severity::Notice,  "the wavelength goes from %1 m to %2 m"},
    {FindingKind::GroundKind,          105, Severity::Notice,  "the ground is %1"},
    {FindingKind::JobHosts,            107, Severity::Notice,  "the hosts are those of %1, number of hosts %2, of processes %3"},
    {FindingKind::ExcitationCount,     106, Severity::Notice,  "number of excitations %1"},
    {FindingKind::Resonance,           201, Severity::Notice,  "resonance at %1 MHz with %2 ohm"},
    {FindingKind::NoResonance,         202, Severity::Notice,  "no resonance within the sweep"},
    {FindingKind::BestMatch,           203, Severity::Notice,  "lowest SWR %2 at %1 MHz"},
};
// clang-format on

const FindingRow& rowOf(FindingKind kind)
{
    const auto* row = std::find_if(std::begin(findingTable), std::end(findingTable),
                                   [kind](const FindingRow& each) { return each.kind == kind; });
    Q_ASSERT(row != std::end(findingTable));
    return *row;
}

bool isError(Severity severity)
{
    return severity == Severity::Error || severity == Severity::Fatal;
}

int rank(const Finding& finding)
{
    return isError(finding.severity()) ? 0 : static_cast<int>(finding.severity());
}

// Fills each gap from its own part. Parts may hold "%1" themselves, so they are not filled in turn.
QString filled(const char* text, const QStringList& parts)
{
    QString result;
    const QString pattern = QLatin1String(text);
    for (int i = 0; i < pattern.size(); ++i) {
        const bool gap = pattern.at(i) == QLatin1Char('%') && i + 1 < pattern.size();
        if (gap) {
            ++i;
            result += plainText(parts.value(pattern.at(i).digitValue() - 1));
        } else {
            result += pattern.at(i);
        }
    }
    return result;
}

} // namespace

Severity Finding::severity() const
{
    return rowOf(kind).severity;
}

int Finding::number() const
{
    return rowOf(kind).number;
}

void FindingList::add(FindingKind kind, int line, const QStringList& parts)
{
    addAtWire(kind, line, 0, parts);
}

void FindingList::addAtWire(FindingKind kind, int line, int tag, const QStringList& parts)
{
    const FindingRow& row = rowOf(kind);
    m_fatal = m_fatal || row.severity == Severity::Fatal;
    if (isError(row.severity) && row.severity != Severity::Fatal) {
        if (m_errorCount > mostErrors) {
            return;
        }
        if (m_errorCount == mostErrors) {
            ++m_errorCount;
            m_findings.append({FindingKind::TooManyErrors, line,
                               filled(rowOf(FindingKind::TooManyErrors).text, {}), 0});
            return;
        }
    }
    if (!isError(row.severity) && m_findings.size() > mostFindings) {
        return;
    }
    m_errorCount += isError(row.severity) ? 1 : 0;
    m_findings.append({kind, line, filled(row.text, parts), tag});
}

bool FindingList::contains(FindingKind kind) const
{
    return std::any_of(m_findings.begin(), m_findings.end(),
                       [kind](const Finding& finding) { return finding.kind == kind; });
}

QVector<Finding> FindingList::sorted() const
{
    QVector<Finding> result = m_findings;
    std::stable_sort(result.begin(), result.end(), [](const Finding& left, const Finding& right) {
        return std::make_pair(rank(left), left.line) < std::make_pair(rank(right), right.line);
    });
    return result;
}

} // namespace suite
