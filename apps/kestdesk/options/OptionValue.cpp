#include "OptionValue.h"

#include <common_PropertyMetaData.h>

#include <algorithm>

namespace {

struct Minimum
{
    const char* name;
    int value;
};

// Counts and numbers that begin somewhere. Others may be any integer.
constexpr Minimum minimums[] = {
    {"Kest.NumberOfParallelProcesses", 1}, {"Kest.ParallelEnvOptions", 0},
    {"Adaptkest.AnalysisNumber", 1},       {"Optkest.SolverRun", 1},
    {"Optkest.NumberOfFarmProcesses", 2},  {"Amrkest.MaximumIterations", 1},
};

std::optional<QString> parsedBoolean(const QString& typed)
{
    for (const auto& [word, value] :
         {std::make_pair("true", "true"), std::make_pair("1", "true"),
          std::make_pair("false", "false"), std::make_pair("0", "false")}) {
        if (typed == QLatin1String(word)) {
            return QString::fromLatin1(value);
        }
    }
    return std::nullopt;
}

std::optional<QString> parsedMember(const QVector<EnumType>& members, const QString& typed)
{
    const auto found =
        std::find_if(members.cbegin(), members.cend(), [&typed](const EnumType& member) {
            return member.key == typed || QString::number(member.value) == typed;
        });
    return found == members.cend() ? std::nullopt
                                   : std::make_optional(QString::number(found->value));
}

std::optional<QString> parsedInteger(const std::optional<int>& minimum, const QString& typed)
{
    bool isNumber = false;
    const int number = typed.toInt(&isNumber);
    return isNumber && (!minimum || number >= *minimum)
               ? std::make_optional(QString::number(number))
               : std::nullopt;
}

} // namespace

std::optional<int> OptionValue::minimum(const common_PropertyMetaData& metaData)
{
    for (const Minimum& row : minimums) {
        if (metaData.name() == QLatin1String(row.name)) {
            return row.value;
        }
    }
    return std::nullopt;
}

QString OptionValue::accepted(const common_PropertyMetaData& metaData)
{
    if (metaData.type() == common_PropertyMetaData::Boolean) {
        return QStringLiteral("true or false");
    }
    if (metaData.type() == common_PropertyMetaData::String) {
        return QStringLiteral("any text");
    }
    const QVector<EnumType> members = metaData.getEnumList();
    if (!members.isEmpty()) {
        QStringList parts;
        for (const EnumType& member : members) {
            parts.append(QStringLiteral("%1 (%2)").arg(member.value).arg(member.key));
        }
        return parts.join(QStringLiteral(", "));
    }
    const std::optional<int> smallest = minimum(metaData);
    return smallest ? QStringLiteral("an integer from %1").arg(*smallest)
                    : QStringLiteral("an integer");
}

QStringList OptionValue::words(const common_PropertyMetaData& metaData)
{
    if (metaData.type() == common_PropertyMetaData::Boolean) {
        return {QStringLiteral("true"), QStringLiteral("false")};
    }
    QStringList keys;
    const QVector<EnumType> members = metaData.getEnumList();
    for (const EnumType& member : members) {
        keys.append(member.key);
    }
    return keys;
}

std::optional<QString> OptionValue::parsed(const common_PropertyMetaData& metaData,
                                           const QString& typed)
{
    if (metaData.type() == common_PropertyMetaData::String) {
        return typed;
    }
    if (metaData.type() == common_PropertyMetaData::Boolean) {
        return parsedBoolean(typed);
    }
    const QVector<EnumType> members = metaData.getEnumList();
    return members.isEmpty() ? parsedInteger(minimum(metaData), typed)
                             : parsedMember(members, typed);
}
