// SPDX-License-Identifier: MIT
#include "FindingMend.h"

#include <CardRules.h>

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

using suite::Finding;
using suite::FindingKind;
using suite::Section;

constexpr int mnemonicLength = 2;

QString mnemonicOf(const QString& line)
{
    return line.trimmed().left(mnemonicLength).toUpper();
}

bool isOf(const QString& line, Section section)
{
    const suite::CardRule* const rule = suite::cardRule(mnemonicOf(line));
    return rule != nullptr && rule->section == section;
}

// Lines from 1 on; behind the last one with text where there is none like that.
template <typename Condition>
int firstLine(const QStringList& lines, Condition condition)
{
    const auto found = std::find_if(lines.cbegin(), lines.cend(), condition);
    if (found != lines.cend()) {
        return static_cast<int>(std::distance(lines.cbegin(), found)) + 1;
    }
    const auto last = std::find_if(lines.crbegin(), lines.crend(),
                                   [](const QString& line) { return !line.trimmed().isEmpty(); });
    return static_cast<int>(std::distance(last, lines.crend())) + 1;
}

bool hasCard(const QStringList& lines, const QString& mnemonic)
{
    return std::any_of(lines.cbegin(), lines.cend(),
                       [&mnemonic](const QString& line) { return mnemonicOf(line) == mnemonic; });
}

// With a ground plane, wires that end on it are connected to it.
QString geometryEnd(const QStringList& lines)
{
    const bool hasGround = std::any_of(lines.cbegin(), lines.cend(), [](const QString& line) {
        return mnemonicOf(line) == QLatin1String("GN") &&
               !line.trimmed().mid(mnemonicLength).trimmed().startsWith(QLatin1String("-1"));
    });
    return hasGround ? QStringLiteral("GE 1") : QStringLiteral("GE 0");
}

QString commentEnd(const QStringList& /*lines*/)
{
    return QStringLiteral("CE");
}

QString execution(const QStringList& /*lines*/)
{
    return QStringLiteral("XQ");
}

QString deckEnd(const QStringList& /*lines*/)
{
    return QStringLiteral("EN");
}

bool isNoComment(const QString& line)
{
    return !isOf(line, Section::Comment);
}

bool isControlOrEnd(const QString& line)
{
    return isOf(line, Section::Control) || isOf(line, Section::End);
}

bool isEnd(const QString& line)
{
    return isOf(line, Section::End);
}

// A card that is missing, and in front of which line it belongs.
struct MissingCard
{
    FindingKind kind;
    QString (*card)(const QStringList& lines);
    bool (*isBehind)(const QString& line);
};

constexpr MissingCard missingCards[] = {
    {FindingKind::CommentsNotEnded, commentEnd, isNoComment},
    {FindingKind::NoGeometryEnd, geometryEnd, isControlOrEnd},
    {FindingKind::NoExecution, execution, isEnd},
    {FindingKind::NoEnd, deckEnd, isEnd},
};

std::optional<FindingMend> insertion(const MissingCard& missing, const QStringList& lines)
{
    const QString card = missing.card(lines);
    const QString mnemonic = mnemonicOf(card);
    if (hasCard(lines, mnemonic)) {
        return std::nullopt;
    }
    return FindingMend{QCoreApplication::translate("FindingMend", "&Insert %1").arg(mnemonic),
                       FindingMend::Kind::Insert, firstLine(lines, missing.isBehind), card};
}

std::optional<FindingMend> withoutBlanks(int line, const QStringList& lines)
{
    const QString text = lines.value(line - 1);
    const auto first =
        std::find_if(text.cbegin(), text.cend(), [](QChar each) { return !each.isSpace(); });
    if (first == text.cbegin() || first == text.cend()) {
        return std::nullopt;
    }
    return FindingMend{QCoreApplication::translate("FindingMend", "Remove the &blanks"),
                       FindingMend::Kind::Replace, line,
                       text.mid(static_cast<int>(std::distance(text.cbegin(), first)))};
}

} // namespace

std::optional<FindingMend> FindingMend::of(const Finding& finding, const QStringList& lines)
{
    if (finding.kind == FindingKind::LeadingBlank) {
        return withoutBlanks(finding.line, lines);
    }
    const auto* const missing =
        std::find_if(std::begin(missingCards), std::end(missingCards),
                     [&finding](const MissingCard& row) { return row.kind == finding.kind; });
    return missing == std::end(missingCards) ? std::nullopt : insertion(*missing, lines);
}
