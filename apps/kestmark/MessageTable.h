// SPDX-License-Identifier: MIT
#pragma once

#include "CheckedPiece.h"

/// What the process dialog's tables make of warnings and notices.
namespace MessageTable {

/// The word that a message of that type must have to be counted and listed: "WARNING " or "NOTE ".
/// Empty for types that are not listed.
QString keyword(common_IProcessMessage::Type type);

/// The row that the message gets; nothing when it is not listed.
std::optional<ListedMessage> row(common_IProcessMessage::Type type, const QString& text);

/// What is wrong with the form of a message; empty when nothing is.
QVector<Remark> remarks(common_IProcessMessage::Type type, const QString& text);

} // namespace MessageTable
