#pragma once

#include "Place.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace suite {

/// Everything a component can have to say about its command line, the model and the run. The number
/// and the text of each stand in one table (Finding.cpp).
enum class FindingKind {
    BadCommandLine,
    ModelMissing,
    ModelIsDirectory,
    ModelUnreadable,
    ModelEmpty,
    ModelTooLarge,
    ModelBinary,
    ByteOrderMark,
    TooManyErrors,
    UnknownCard,
    MissingFields,
    TooManyFields,
    NotNumber,
    NotInteger,
    NumberOutOfRange,
    LineTooLong,
    NotAscii,
    LeadingBlank,
    UnsupportedCard,
    CommentsNotEnded,
    CommentAfterEnd,
    ControlBeforeEnd,
    GeometryAfterEnd,
    NoGeometryEnd,
    NoGeometry,
    NoFrequency,
    SecondFrequency,
    NoExcitation,
    NoExecution,
    ExecutionTooEarly,
    NoEnd,
    TaperWithoutWire,
    PatchContinuation,
    BadDefinition,
    BadName,
    SecondDefinition,
    UnknownName,
    BadExpression,
    DivisionByZero,
    ValueOutOfRange,
    TooManyNames,
    BadOptimisation,
    SecondOptimisation,
    OptimisedNameUnknown,
    OptimisedExpression,
    BadOptimisationRange,
    ValueOutsideRange,
    NoOptimisation,
    MachinesFileUnusable,
    EvaluationFailed,
    RunFolderUnusable,
    RestartImpossible,
    TunedAtEdge,
    NoTunedResonance,
    NotConverged,
    FarmTooSmall,
    TunedValue,
    TunedImpedance,
    EvaluationCount,
    BadSegmentCount,
    TooManySegments,
    ZeroLengthWire,
    BadRadius,
    BadTag,
    BadArc,
    BadHelix,
    BadTransformation,
    WireBelowGround,
    BadFrequency,
    BadFrequencyStep,
    BadFrequencyType,
    TooManyFrequencies,
    BadCardType,
    UnknownTag,
    UnknownSegment,
    BadLoadRange,
    BadLoadValue,
    BadLine,
    BadGround,
    TooManyAngles,
    BadAdaptiveTolerance,
    SecondAdaptive,
    AdaptiveWithoutSource,
    RestartRefused,
    WorkFolderRefused,
    AdaptiveDone,
    AdaptiveUsedUp,
    NotRefinable,
    RefinedWithoutSource,
    IterationFailed,
    FinalSolveFailed,
    RefinementConverged,
    RefinementNotConverged,
    RefinementLimit,
    EngineMissing,
    EngineFailed,
    EngineResult,
    EngineOutput,
    RemoteRunFailed,
    ResultNotWritten,
    ResumeRefused,
    Stopped,
    PartialKept,
    PartialTakenOver,
    PartialDamaged,
    NothingToResume,
    PartialReplaced,
    AnalysesKept,
    EvaluationsKept,
    PartialNotKept,
    LongSegment,
    ThickSegment,
    SharedTag,
    IgnoredAfterEnd,
    PlotFileDropped,
    PriorityNotRaised,
    MoreProcesses,
    SweepRemark,
    HostsOutsideJob,
    WireCount,
    SegmentCount,
    FrequencyCount,
    WavelengthRange,
    GroundKind,
    ExcitationCount,
    JobHosts,
    Resonance,
    NoResonance,
    BestMatch,
};

enum class Severity {
    Fatal, ///< an error that cannot be ignored
    Error,
    Warning,
    Notice,
};

/// One thing that was found, at a line of the model or (0) at none.
struct Finding
{
    FindingKind kind;
    int line = 0;
    QString reason;
    int tag = 0; ///< of the wire, as the model has it; 0 for none

    /// Where it was found; the file's name is the caller's.
    [[nodiscard]] Place place(const QString& file = QString()) const { return {file, line, tag}; }

    [[nodiscard]] Severity severity() const;
    [[nodiscard]] int number() const;
};

/// What was found so far, in the order of finding. Past a limit the errors are only counted: a file
/// that is no deck at all would otherwise give one for each of its lines.
class FindingList
{
public:
    /// Adds a finding; the parts fill the gaps of the kind's text and are made safe to print.
    void add(FindingKind kind, int line = 0, const QStringList& parts = QStringList());

    /// The same for a wire, which has a tag in the model or (0) none.
    void addAtWire(FindingKind kind, int line, int tag, const QStringList& parts = QStringList());

    [[nodiscard]] bool isEmpty() const { return m_findings.isEmpty(); }
    [[nodiscard]] bool hasErrors() const { return m_errorCount > 0; }
    [[nodiscard]] bool hasFatalErrors() const { return m_fatal; }
    [[nodiscard]] int errorCount() const { return m_errorCount; }
    [[nodiscard]] bool contains(FindingKind kind) const;

    /// All findings, those of one severity together and in the order of their lines.
    [[nodiscard]] QVector<Finding> sorted() const;

private:
    QVector<Finding> m_findings;
    int m_errorCount = 0;
    bool m_fatal = false;
};

} // namespace suite
