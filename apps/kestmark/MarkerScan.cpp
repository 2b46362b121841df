// SPDX-License-Identifier: MIT
#include "MarkerScan.h"

#include "NearWord.h"

#include <MarkerPrinter.h>

#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int fenceLength = 3;
constexpr int shortestWord = 3; // from which on a word may be a slip of another one

const QStringList& knownWords()
{
    static const QStringList words = [] {
        using suite::Marker;
        QStringList result;
        for (const Marker marker :
             {Marker::LineFeed, Marker::Percentage, Marker::TotalPercentage, Marker::Error,
              Marker::Warning, Marker::Notice, Marker::File, Marker::Variable}) {
            result.append(MarkerScan::wordOf(suite::markerText(marker)));
        }
        return result;
    }();
    return words;
}

// D stands for a hyphen or a dash, S for a star, as keyboards and word processors make them.
QRegularExpression expression(const char* pattern)
{
    QString text = QString::fromLatin1(pattern);
    text.replace(QLatin1Char('D'), QStringLiteral("[-\\x{2010}-\\x{2015}\\x{2212}]"));
    text.replace(QLatin1Char('S'), QStringLiteral("[*\\x{2217}\\x{FF0A}]"));
    return QRegularExpression(text);
}

bool hasFence(const QString& text)
{
    static const QRegularExpression pattern = expression(R"(D\s*S|S\s*D)");
    return pattern.match(text).hasMatch();
}

// A known word between what may have been meant for fences.
MarkerScan::NearMiss brokenMarker(const QString& text)
{
    static const QRegularExpression pattern =
        expression(R"(D?[ \t]*S[ \t]*D?[ \t]*([A-Za-z](?:[A-Za-z _]|D)*?)[ \t]*D?[ \t]*S[ \t]*D?)");
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QString suggestion = MarkerScan::suggestion(match.captured(1));
        if (!suggestion.isEmpty() && hasFence(match.captured())) {
            return {match.captured().trimmed(), suggestion};
        }
    }
    return {};
}

// A known word with a fence on one side only.
MarkerScan::NearMiss halfMarker(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("-\\*-[ \\t]*([A-Za-z_-]*[A-Za-z])|([A-Za-z][A-Za-z_-]*?)[ \\t]*-\\*-"));
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QString word = (match.captured(1) + match.captured(2)).toLower().replace(u'_', u'-');
        if (knownWords().contains(word)) {
            return {match.captured(), MarkerScan::suggestion(word)};
        }
    }
    return {};
}

// Any text between two fences.
MarkerScan::NearMiss fencedText(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("-\\*-[^*]{1,60}?-\\*-"));
    return {pattern.match(text).captured(), QString()};
}

} // namespace

QVector<MarkerScan::Found> MarkerScan::markers(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("-\\*-[a-z]*+-?[a-z]*+-\\*-"));
    QVector<Found> result;
    if (!text.contains(QLatin1Char('*'))) {
        return result;
    }
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        result.append({static_cast<int>(match.capturedStart()),
                       static_cast<int>(match.capturedEnd()), match.captured()});
    }
    return result;
}

bool MarkerScan::isKnown(const QString& marker)
{
    return knownWords().contains(wordOf(marker));
}

QString MarkerScan::wordOf(const QString& marker)
{
    return marker.mid(fenceLength, marker.size() - 2 * fenceLength);
}

QString MarkerScan::suggestion(const QString& word)
{
    static const QRegularExpression separators = expression("(?:[ \\t_]|D)+");
    QString plain = word.toLower().replace(separators, QStringLiteral("-"));
    while (plain.startsWith(QLatin1Char('-'))) {
        plain.remove(0, 1);
    }
    while (plain.endsWith(QLatin1Char('-'))) {
        plain.chop(1);
    }
    const QString known = knownWords().contains(plain)   ? plain
                          : plain.size() >= shortestWord ? NearWord::of(plain, knownWords())
                                                         : QString();
    return known.isEmpty() ? QString() : QStringLiteral("-*-%1-*-").arg(known);
}

MarkerScan::NearMiss MarkerScan::nearMiss(const QString& text)
{
    static const QRegularExpression star = expression("S");
    if (!text.contains(star)) {
        return {};
    }
    for (const auto find : {brokenMarker, halfMarker, fencedText}) {
        NearMiss result = find(text);
        if (!result.text.isEmpty()) {
            return result;
        }
    }
    return {};
}
