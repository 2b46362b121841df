// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// Suggests a known word for a mistyped one.
namespace NearWord {

/// The first known word that is similar: it has the same first letter and at most two wrong,
/// missing, extra or transposed letters, or the typed word abbreviates it. Empty if there is none.
QString of(const QString& typed, const QStringList& known);

} // namespace NearWord
