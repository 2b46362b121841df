// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Shows what records keep in words: states, kinds of messages, reasons and problems.
///
/// These texts are made, recorded, compared and printed as JSON in English, so that a record does
/// not depend on the language of the user who made it, and old records can be shown in every
/// language. They are translated only when they are shown.
namespace ReasonText {

/// The text in the user's language. Texts of other programs, and those that are not known, are
/// returned as they are.
QString shown(const QString& english);

} // namespace ReasonText
