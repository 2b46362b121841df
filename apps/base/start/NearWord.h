#pragma once

#include <QString>
#include <QStringList>

/// What a user may have meant by a word that is not known.
namespace NearWord {

/// The first of the known words that the typed one is a slip or an abbreviation of: with the same
/// first letter, and with at most two letters that are wrong, missing, too many or exchanged with
/// their neighbour, or with some left out. Empty when there is none.
QString of(const QString& typed, const QStringList& known);

} // namespace NearWord
