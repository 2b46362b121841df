// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

/// A message of a run as its record keeps it: one line of JSON.
struct RecordedMessage
{
    using Type = common_IProcessMessage::Type;

    qint64 time = 0; ///< milliseconds since the start
    Type type = Type::Output;
    QString text;

    /// The word for a type: "output", "warning", ...
    static QString word(Type type);

    QJsonObject toJson() const;

    /// The JSON with a line feed.
    QByteArray toLine() const;

    /// Parses a line without its line feed; returns nothing if it is not a message.
    static std::optional<RecordedMessage> parse(const QByteArray& line);
};
