// SPDX-License-Identifier: MIT
// The parser of plain output, held against the same steps character by character.

#include "Fuzzing.h"

#include <common_GenericProcessMessage.h>

namespace {

QString withoutLineEnds(const QString& text)
{
    QString result;
    for (const QChar character : text) {
        if (character.unicode() != 13 && character.unicode() != 10) {
            result.append(character);
        }
    }
    return result;
}

QString trimmed(QString text)
{
    while (!text.isEmpty() && text.at(0).isSpace()) {
        text.remove(0, 1);
    }
    while (!text.isEmpty() && text.at(text.size() - 1).isSpace()) {
        text.chop(1);
    }
    return text;
}

QByteArray latin1(const QString& text)
{
    QByteArray result;
    for (const QChar character : text) {
        const ushort code = character.unicode();
        result.append(code <= 0xff ? static_cast<char>(code) : '?');
    }
    return result;
}

void requireMessage(const QVector<common_GenericProcessMessage>& messages,
                    common_IProcessMessage::Type type, const QString& text)
{
    require(messages.size() == 1, "a chunk is one message");
    require(messages.first().getType() == type, "the channel decides the type");
    require(messages.first().getText() == text, "the text is what the steps give");
}

} // namespace

void fuzz(FuzzedInput input)
{
    const QString text = input.text();
    const QString expected = FuzzedInput::decoded(latin1(trimmed(withoutLineEnds(text))));
    requireMessage(common_GenericProcessMessage::parseOutput(text), common_IProcessMessage::Output,
                   expected);
    requireMessage(common_GenericProcessMessage::parseError(text), common_IProcessMessage::Error,
                   expected);
}
