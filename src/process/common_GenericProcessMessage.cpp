// SPDX-License-Identifier: MIT
#include <common_GenericProcessMessage.h>

#include "common_LineEnds.h"

#include <algorithm>

namespace {

bool isAscii(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.unicode() < 0x80; });
}

// Decoded twice, as the applications have always shown the output of these programs. ASCII
// survives.
QString decodedTwice(const QString& text)
{
    if (isAscii(text)) {
        return text;
    }
    const QByteArray latin1 = text.toLatin1();
    return QString::fromUtf8(latin1.constData(), latin1.size());
}

} // namespace

common_GenericProcessMessage::common_GenericProcessMessage(Type type, const QString& text)
    : m_text(text), m_type(type)
{}

QString common_GenericProcessMessage::getText() const
{
    return m_text;
}

common_IProcessMessage::Type common_GenericProcessMessage::getType() const
{
    return m_type;
}

QVector<common_GenericProcessMessage> common_GenericProcessMessage::parse(Type type,
                                                                          const QString& text)
{
    return {
        common_GenericProcessMessage(type, decodedTwice(common_withoutLineEnds(text).trimmed()))};
}

QVector<common_GenericProcessMessage> common_GenericProcessMessage::parseOutput(const QString& text)
{
    return parse(Output, text);
}

QVector<common_GenericProcessMessage> common_GenericProcessMessage::parseError(const QString& text)
{
    return parse(Error, text);
}
