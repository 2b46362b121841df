#pragma once

#include "Finding.h"

class TuningSearch;
struct Evaluation;
struct OptimisationState;

/// What people are shown of an optimisation.
namespace TuningReport {

/// What is to be optimised, as a sentence.
QString question(const OptimisationState& question, int placeCount);

/// The header of the table of evaluations, and a line with the place where one was made.
QString tableHeader(const OptimisationState& question);
QString tableLine(const Evaluation& evaluation, const QString& place);

/// What the search has found, and how; it must have evaluated something.
suite::FindingList facts(const TuningSearch& search);

} // namespace TuningReport
