// SPDX-License-Identifier: MIT
#pragma once

#include "Place.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace suite {

/// All findings of components about the command line, the model and the run. Their numbers and
/// texts are in one table (Finding.cpp).
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

/// One finding, at a line of the model or (0) without a line.
struct Finding
{
    FindingKind kind;
    int line = 0;
    QString reason;
    int tag = 0; ///< of the wire, as the model has it; 0 for none

    /// The place of the finding, in the given file.
    [[nodiscard]] Place place(const QString& file = QString()) const { return {file, line, tag}; }

    [[nodiscard]] Severity severity() const;
    [[nodiscard]] int number() const;
};

/// Findings in their order. Beyond a limit errors are only counted: a file that is not a deck would
/// otherwise give one for each of its lines.
class FindingList
{
public:
    /// Adds a finding. The parts replace the placeholders of the kind's text and are escaped for
    /// output.
    void add(FindingKind kind, int line = 0, const QStringList& parts = QStringList());

    /// The same for a wire with this tag, 0 for none.
    void addAtWire(FindingKind kind, int line, int tag, const QStringList& parts = QStringList());

    [[nodiscard]] bool isEmpty() const { return m_findings.isEmpty(); }
    [[nodiscard]] bool hasErrors() const { return m_errorCount > 0; }
    [[nodiscard]] bool hasFatalErrors() const { return m_fatal; }
    [[nodiscard]] int errorCount() const { return m_errorCount; }
    [[nodiscard]] bool contains(FindingKind kind) const;

    /// All findings, sorted by severity and then by line.
    [[nodiscard]] QVector<Finding> sorted() const;

private:
    QVector<Finding> m_findings;
    int m_errorCount = 0;
    bool m_fatal = false;
};

} // namespace suite
