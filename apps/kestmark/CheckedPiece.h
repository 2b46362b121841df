// SPDX-License-Identifier: MIT
#pragma once

#include "Remark.h"

#include <common_IProcessMessage.h>

#include <QString>
#include <QVector>

#include <optional>

/// The row of the process dialog's table that a warning or a notice gets.
struct ListedMessage
{
    QString identifier;
    QString description;
};

/// A message as the library passes it to applications.
struct CheckedMessage
{
    common_IProcessMessage::Type type = common_IProcessMessage::Output;
    QString text;
    bool isRepeated = false;             ///< whether the text is that of the marker before
    std::optional<ListedMessage> listed; ///< of warnings and notices
};

/// What the library makes of a piece of a component's output.
struct CheckedPiece
{
    qint64 line = 1;
    qint64 number = 1;                ///< in its line
    bool isOnlyOne = true;            ///< whether the line has no other pieces
    QVector<CheckedMessage> messages; ///< none for a blank line
    QVector<Remark> remarks;
};
