// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

class TuningSearch;
struct Evaluation;
struct OptimisationState;

/// Texts about an optimisation for the user.
namespace TuningReport {

/// The value to optimise, as a sentence.
QString question(const OptimisationState& question, int placeCount);

/// The header of the table of evaluations, and a line with the place where one was made.
QString tableHeader(const OptimisationState& question);
QString tableLine(const Evaluation& evaluation, const QString& place);

/// The result of the search as notices. There must be an evaluation.
suite::FindingList facts(const TuningSearch& search);

} // namespace TuningReport
