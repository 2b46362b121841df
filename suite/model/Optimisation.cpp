// SPDX-License-Identifier: MIT
#include "Optimisation.h"

#include "Expression.h"
#include "PlainText.h"

#include <cmath>

namespace suite {

namespace {

constexpr int mnemonicLength = 2;

// Beyond this no length and no frequency has a meaning.
constexpr double largestNumber = 1e15;

QStringList wordsOf(const QByteArray& comment)
{
    return QString::fromUtf8(comment)
        .mid(mnemonicLength)
        .simplified()
        .split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool isWord(const QString& word, const char* expected)
{
    return word.compare(QLatin1String(expected), Qt::CaseInsensitive) == 0;
}

bool readNumber(const QString& word, double& number)
{
    number = word.toDouble();
    return isPlainNumber(word) && std::abs(number) <= largestNumber;
}

// The line's words: "@optimise NAME FROM LOW TO HIGH", and "AT MHZ" if wanted.
bool readWords(const QStringList& words, Optimisation& result)
{
    const bool hasFrequency =
        words.size() == 8 && isWord(words.at(6), "AT") && readNumber(words.at(7), result.frequency);
    const bool isComplete = words.size() == 6 || hasFrequency;
    return isComplete && isWord(words.at(2), "FROM") && readNumber(words.at(3), result.low) &&
           isWord(words.at(4), "TO") && readNumber(words.at(5), result.high);
}

bool check(const Optimisation& optimisation, bool saysFrequency, FindingList& findings)
{
    const NamedValue& value = optimisation.value;
    const int errorsBefore = findings.errorCount();
    if (!(optimisation.low < optimisation.high)) {
        findings.add(FindingKind::BadOptimisationRange, optimisation.line,
                     {plainNumber(optimisation.low), plainNumber(optimisation.high)});
    } else if (value.value < optimisation.low || value.value > optimisation.high) {
        findings.add(FindingKind::ValueOutsideRange, optimisation.line,
                     {value.name, plainNumber(value.value), plainNumber(optimisation.low),
                      plainNumber(optimisation.high)});
    }
    if (saysFrequency && !(optimisation.frequency > 0)) {
        findings.add(FindingKind::BadFrequency, optimisation.line,
                     {plainNumber(optimisation.frequency)});
    }
    if (!value.isPlain) {
        findings.add(FindingKind::OptimisedExpression, value.line, {value.name});
    }
    return findings.errorCount() == errorsBefore;
}

} // namespace

bool isOptimisation(const QByteArray& comment)
{
    // The word is cut out first: most comments need no more than a look at it.
    const QByteArray text = comment.mid(mnemonicLength).trimmed();
    return text.startsWith('@') && isWord(wordsOf(comment).value(0), "@optimise");
}

std::optional<Optimisation> readOptimisation(const Deck& deck, FindingList& findings)
{
    for (int index = 1; index < deck.instructions.size(); ++index) {
        findings.add(FindingKind::SecondOptimisation, deck.instructions.at(index).line,
                     {QString::number(deck.instructions.first().line)});
    }
    if (deck.instructions.isEmpty()) {
        return std::nullopt;
    }
    Optimisation result;
    result.line = deck.instructions.first().line;
    const QStringList words = wordsOf(deck.instructions.first().text);
    if (!readWords(words, result)) {
        findings.add(FindingKind::BadOptimisation, result.line,
                     {excerpt(words.join(QLatin1Char(' ')))});
        return std::nullopt;
    }
    const NamedValue* value = deck.names.find(words.at(1));
    if (value == nullptr) {
        findings.add(FindingKind::OptimisedNameUnknown, result.line, {excerpt(words.at(1))});
        return std::nullopt;
    }
    if (std::isnan(value->value)) {
        return std::nullopt;
    }
    result.value = *value;
    return check(result, words.size() > 6, findings) ? std::make_optional(result) : std::nullopt;
}

} // namespace suite
