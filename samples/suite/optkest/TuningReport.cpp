// SPDX-License-Identifier: MIT
#include "TuningReport.h"

#include "Expression.h"
#include "TuningSearch.h"

using namespace suite;

namespace {

QString line(const QString& run, const QString& value, const QString& resistance,
             const QString& reactance, const QString& place)
{
    return QStringLiteral("%1 %2 %3 %4  %5")
        .arg(run, 6)
        .arg(value, 14)
        .arg(resistance, 12)
        .arg(reactance, 12)
        .arg(place);
}

} // namespace

QString TuningReport::question(const OptimisationState& question, int placeCount)
{
    return QStringLiteral("Optimising %1 from %2 to %3 at %4 MHz, %5 at once")
        .arg(question.name, plainNumber(question.low), plainNumber(question.high),
             plainNumber(question.frequency), QString::number(placeCount));
}

QString TuningReport::tableHeader(const OptimisationState& question)
{
    return line(QStringLiteral("run"), question.name, QStringLiteral("R ohm"),
                QStringLiteral("X ohm"), QStringLiteral("host"));
}

QString TuningReport::tableLine(const Evaluation& evaluation, const QString& place)
{
    return line(QString::number(evaluation.run), plainNumber(evaluation.value),
                QString::number(evaluation.impedance.resistance, 'f', 3),
                QString::number(evaluation.impedance.reactance, 'f', 3), place);
}

FindingList TuningReport::facts(const TuningSearch& search)
{
    FindingList result;
    const OptimisationState& state = search.state();
    const Evaluation tuned = search.best();
    const QString count = QString::number(state.evaluations.size());
    if (search.isAtEdge()) {
        result.add(FindingKind::TunedAtEdge, 0,
                   {state.name, plainNumber(state.low), plainNumber(state.high)});
    }
    if (!search.isResonance()) {
        result.add(FindingKind::NoTunedResonance, 0, {QString::number(tuned.objective())});
    }
    if (!search.isConverged()) {
        result.add(FindingKind::NotConverged, 0, {count});
    }
    result.add(FindingKind::TunedValue, 0,
               {state.name, plainNumber(tuned.value), plainNumber(state.frequency)});
    result.add(
        FindingKind::TunedImpedance, 0,
        {QString::number(tuned.impedance.resistance), QString::number(tuned.impedance.reactance)});
    result.add(
        FindingKind::EvaluationCount, 0,
        {count, QString::number(search.roundCount()), QString::number(search.takenOverCount())});
    return result;
}
