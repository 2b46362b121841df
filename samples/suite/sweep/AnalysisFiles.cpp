// SPDX-License-Identifier: MIT
#include "AnalysisFiles.h"

#include <InputFile.h>
#include <ResultFiles.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <utility>

namespace suite {

namespace {

// To be increased when the choice of points or the format of the files changes.
constexpr int formatNumber = 1;

// The largest file that is read; this class writes no larger ones.
constexpr qint64 largestFile = 1 << 30;

QString fileName(int number)
{
    return QStringLiteral("analysis_%1.json").arg(number, 3, 10, QLatin1Char('0'));
}

QJsonObject jsonOf(const AnalysisPoint& point)
{
    return {{QStringLiteral("frequency_MHz"), point.frequency},
            {QStringLiteral("resistance_ohm"), point.impedance.resistance},
            {QStringLiteral("reactance_ohm"), point.impedance.reactance},
            {QStringLiteral("output"), QString::fromLatin1(point.packedOutput.toBase64())}};
}

// Returns nothing if a value is missing or contradicts the engine's output.
std::optional<AnalysisPoint> pointOf(const QJsonObject& object)
{
    AnalysisPoint point;
    point.frequency = object.value(QLatin1String("frequency_MHz")).toDouble();
    point.impedance.resistance =
        object.value(QLatin1String("resistance_ohm")).toDouble(std::nan(""));
    point.impedance.reactance = object.value(QLatin1String("reactance_ohm")).toDouble(std::nan(""));
    point.packedOutput =
        QByteArray::fromBase64(object.value(QLatin1String("output")).toString().toLatin1());
    const EngineOutput output = point.output();
    const bool isGood = output.hasImpedance() &&
                        output.impedance().resistance == point.impedance.resistance &&
                        output.impedance().reactance == point.impedance.reactance;
    return isGood ? std::optional<AnalysisPoint>(point) : std::nullopt;
}

} // namespace

AnalysisPoint::AnalysisPoint(double ofFrequency, const EngineOutput& output)
    : frequency(ofFrequency)
    , impedance(output.impedance())
    , packedOutput(qCompress(output.stableBytes()))
{}

EngineOutput AnalysisPoint::output() const
{
    return EngineOutput(qUncompress(packedOutput));
}

AnalysisFiles::AnalysisFiles(QString folder, QByteArray key)
    : m_folder(std::move(folder)), m_key(std::move(key))
{}

QByteArray AnalysisFiles::keyOf(const Model& model, double tolerance)
{
    const FrequencyRange& range = model.frequencies;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(SweepDeck(model).deck(0));
    for (const double number :
         {static_cast<double>(formatNumber), tolerance, range.start, range.step,
          static_cast<double>(range.count), range.isMultiplying ? 1.0 : 0.0}) {
        hash.addData(QByteArray::number(number, 'g', 17) + ' ');
    }
    return hash.result().toHex();
}

QRegularExpression AnalysisFiles::names()
{
    return QRegularExpression(QStringLiteral("\\Aanalysis_[0-9]{3,}\\.json(\\.[A-Za-z]{6})?\\z"));
}

bool AnalysisFiles::save(int number, const QVector<AnalysisPoint>& points)
{
    QJsonArray array;
    for (const AnalysisPoint& point : points) {
        array.append(jsonOf(point));
    }
    const QJsonObject object = {{QStringLiteral("format"), formatNumber},
                                {QStringLiteral("analysis"), number},
                                {QStringLiteral("model"), QString::fromLatin1(m_key)},
                                {QStringLiteral("points"), array}};
    ResultFiles files;
    if (!files.replace(path(number), QJsonDocument(object).toJson())) {
        m_error = files.error();
        return false;
    }
    removeAfter(number);
    return true;
}

bool AnalysisFiles::exists(int number) const
{
    const QFileInfo info(path(number));
    return info.exists() || info.isSymLink();
}

std::optional<QVector<AnalysisPoint>> AnalysisFiles::load(int number)
{
    const QFileInfo info(path(number));
    if (!exists(number)) {
        m_error = QStringLiteral("there is no analysis %1 to go on from").arg(number);
        return std::nullopt;
    }
    InputFile file(path(number));
    const std::optional<QByteArray> content =
        info.isSymLink() ? std::nullopt : file.read(largestFile);
    if (!content) {
        refuse(number, QStringLiteral("it cannot be read"));
        return std::nullopt;
    }
    const QJsonObject object = QJsonDocument::fromJson(*content).object();
    const QString problem = problemOf(object, number);
    if (!problem.isEmpty()) {
        refuse(number, problem);
        return std::nullopt;
    }
    QVector<AnalysisPoint> points;
    const QJsonArray array = object.value(QLatin1String("points")).toArray();
    for (const QJsonValue& value : array) {
        const std::optional<AnalysisPoint> point = pointOf(value.toObject());
        if (!point) {
            refuse(number, QStringLiteral("it is damaged"));
            return std::nullopt;
        }
        points.append(*point);
    }
    return points;
}

QString AnalysisFiles::problemOf(const QJsonObject& object, int number) const
{
    if (object.value(QLatin1String("format")).toInt() != formatNumber ||
        object.value(QLatin1String("analysis")).toInt() != number) {
        return QStringLiteral("it is damaged");
    }
    if (object.value(QLatin1String("model")).toString().toLatin1() != m_key) {
        return QStringLiteral("it belongs to another model, or the model was changed");
    }
    return {};
}

void AnalysisFiles::removeAfter(int number)
{
    for (int later = number + 1; QFile::exists(path(later)); ++later) {
        QFile::remove(path(later));
    }
}

bool AnalysisFiles::refuse(int number, const QString& reason)
{
    m_error = QStringLiteral("the file '%1' cannot be used, %2").arg(fileName(number), reason);
    return false;
}

QString AnalysisFiles::path(int number) const
{
    return m_folder + QLatin1Char('/') + fileName(number);
}

} // namespace suite
