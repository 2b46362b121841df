// SPDX-License-Identifier: MIT
#include "OptimisationState.h"

#include "Expression.h"

#include <InputFile.h>
#include <OutputFile.h>
#include <TableLine.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 largestState = 4 << 20;
constexpr int mostRuns = 1000000;

QJsonObject objectOf(const Evaluation& evaluation)
{
    return {
        {QStringLiteral("run"), evaluation.run},
        {QStringLiteral("value"), evaluation.value},
        {QStringLiteral("resistance"), evaluation.impedance.resistance},
        {QStringLiteral("reactance"), evaluation.impedance.reactance},
    };
}

// False when the object is no evaluation.
bool readEvaluation(const QJsonObject& object, Evaluation& evaluation)
{
    static const QStringList keys = {QStringLiteral("run"), QStringLiteral("value"),
                                     QStringLiteral("resistance"), QStringLiteral("reactance")};
    const bool isWhole = std::all_of(keys.begin(), keys.end(), [&object](const QString& key) {
        return object.value(key).isDouble();
    });
    evaluation.run = object.value(keys.at(0)).toInt();
    evaluation.value = object.value(keys.at(1)).toDouble();
    evaluation.impedance.resistance = object.value(keys.at(2)).toDouble();
    evaluation.impedance.reactance = object.value(keys.at(3)).toDouble();
    return isWhole && evaluation.run >= 1 && evaluation.run <= mostRuns;
}

bool precedes(const Evaluation& left, const Evaluation& right)
{
    return left.run < right.run;
}

QString fileError(const char* problem, const QString& path, const QString& reason)
{
    return QStringLiteral("the file '%1' cannot be %2, %3")
        .arg(QFileInfo(path).fileName(), QLatin1String(problem), reason);
}

} // namespace

double Evaluation::objective() const
{
    return std::abs(impedance.reactance);
}

bool OptimisationState::isSameQuestion(const OptimisationState& other) const
{
    return fingerprint == other.fingerprint && name == other.name && low == other.low &&
           high == other.high && frequency == other.frequency;
}

int OptimisationState::lastRun() const
{
    return evaluations.isEmpty() ? 0 : evaluations.last().run;
}

void OptimisationState::add(const Evaluation& evaluation)
{
    evaluations.insert(
        std::upper_bound(evaluations.begin(), evaluations.end(), evaluation, precedes), evaluation);
}

QString OptimisationState::write(const QString& path) const
{
    QJsonArray runs;
    for (const Evaluation& evaluation : evaluations) {
        runs.append(objectOf(evaluation));
    }
    const QJsonObject object = {
        {QStringLiteral("model"), fingerprint},
        {QStringLiteral("name"), name},
        {QStringLiteral("low"), low},
        {QStringLiteral("high"), high},
        {QStringLiteral("frequency"), frequency},
        {QStringLiteral("at_once"), atOnce},
        {QStringLiteral("evaluations"), runs},
    };
    suite::OutputFile file(path);
    return file.replace(QJsonDocument(object).toJson()) ? QString()
                                                        : fileError("written", path, file.reason());
}

QString OptimisationState::read(const QString& path)
{
    suite::InputFile file(path);
    const std::optional<QByteArray> content = file.read(largestState);
    if (file.problem() == suite::InputFile::Problem::Missing) {
        return QStringLiteral("there are no earlier runs");
    }
    if (!content) {
        return fileError("read", path, file.reason());
    }
    const QJsonObject object = QJsonDocument::fromJson(*content).object();
    fingerprint = object.value(QStringLiteral("model")).toString();
    name = object.value(QStringLiteral("name")).toString();
    low = object.value(QStringLiteral("low")).toDouble();
    high = object.value(QStringLiteral("high")).toDouble();
    frequency = object.value(QStringLiteral("frequency")).toDouble();
    atOnce = object.value(QStringLiteral("at_once")).toInt();
    const QJsonArray runs = object.value(QStringLiteral("evaluations")).toArray();
    bool isGood = !fingerprint.isEmpty() && !runs.isEmpty();
    for (const QJsonValue& run : runs) {
        Evaluation evaluation;
        isGood = readEvaluation(run.toObject(), evaluation) && isGood;
        isGood = isGood && evaluation.value > low && evaluation.value < high &&
                 evaluation.run > lastRun();
        evaluations.append(evaluation);
    }
    return isGood ? QString()
                  : QStringLiteral("the file '%1' is damaged").arg(QFileInfo(path).fileName());
}

QString OptimisationState::readEarlier(const QString& path, const OptimisationState& question,
                                       int run)
{
    QString error = read(path);
    if (!error.isEmpty()) {
        return error;
    }
    if (!isSameQuestion(question)) {
        return QStringLiteral("the earlier runs were of another model, range or frequency");
    }
    return lastRun() < run ? QStringLiteral("the last earlier run is %1").arg(lastRun())
                           : QString();
}

QByteArray OptimisationState::csv() const
{
    QByteArray text = "run,value,resistance_ohm,reactance_ohm,objective_ohm\n";
    for (const Evaluation& evaluation : evaluations) {
        text += suite::tableLine({QByteArray::number(evaluation.run),
                                  suite::plainNumber(evaluation.value).toLatin1(),
                                  suite::tableNumber(evaluation.impedance.resistance),
                                  suite::tableNumber(evaluation.impedance.reactance),
                                  suite::tableNumber(evaluation.objective())});
    }
    return text;
}
