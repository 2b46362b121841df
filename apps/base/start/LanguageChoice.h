// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// Chooses the language of the applications' own texts.
namespace LanguageChoice {

/// The language that the user has set for the applications; empty if it follows the system.
QString ofUser();

/// The languages that the user wants, the first one most: that of ofUser() alone, or those of the
/// system, none of which is one where the locale is "C".
QStringList wanted();

/// The first of these that is available, such as "de" for "de-AT". English always is, as the
/// sources are in it; also "C" stands for it. Empty if none is available.
QString of(const QStringList& wanted, const QStringList& available);

} // namespace LanguageChoice
