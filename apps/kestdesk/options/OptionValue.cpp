// SPDX-License-Identifier: MIT
#include "OptionValue.h"

#include "OptionRules.h"

#include <common_PropertyMetaData.h>

#include <QCoreApplication>

#include <algorithm>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OptionValue)
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

} // namespace

QString OptionValue::accepted(const common_PropertyMetaData& metaData)
{
    if (metaData.type() == common_PropertyMetaData::Boolean) {
        return Texts::tr("true or false");
    }
    const QVector<EnumType> members = metaData.getEnumList();
    if (!members.isEmpty()) {
        QStringList parts;
        for (const EnumType& member : members) {
            parts.append(QStringLiteral("%1 (%2)").arg(member.value).arg(member.key));
        }
        return parts.join(QStringLiteral(", "));
    }
    return OptionRules::accepted(metaData);
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

std::optional<QString> OptionValue::parse(const common_PropertyMetaData& metaData,
                                          const QString& typed)
{
    if (metaData.type() == common_PropertyMetaData::Boolean) {
        return parsedBoolean(typed);
    }
    const QVector<EnumType> members = metaData.getEnumList();
    if (!members.isEmpty()) {
        return parsedMember(members, typed);
    }
    if (!OptionRules::problem(metaData, typed).isEmpty()) {
        return std::nullopt;
    }
    return metaData.type() == common_PropertyMetaData::Integer ? QString::number(typed.toInt())
                                                               : typed;
}
