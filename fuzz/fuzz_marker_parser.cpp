// SPDX-License-Identifier: MIT
// The parser of marked output, held against the regular expressions that define it.

#include "Fuzzing.h"

#include <MarkerPattern.h>

#include <common_KestProcessMessage.h>

#include <algorithm>

namespace {

bool isSame(const common_KestProcessMessage& message, const MarkerPattern::Message& expected)
{
    return message.getType() == expected.first && message.getText() == expected.second;
}

bool areSame(const QVector<common_KestProcessMessage>& messages,
             const QVector<MarkerPattern::Message>& expected)
{
    return std::equal(messages.cbegin(), messages.cend(), expected.cbegin(), expected.cend(),
                      isSame);
}

} // namespace

void fuzz(FuzzedInput input)
{
    const QString text = input.text();
    const QVector<MarkerPattern::Message> expected = MarkerPattern::parse(text);
    require(areSame(common_KestProcessMessage::parseOutput(text), expected),
            "output is what the pattern finds");
    require(areSame(common_KestProcessMessage::parseError(text), expected),
            "errors are what the pattern finds");
}
