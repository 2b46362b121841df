// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The translations that a program has in its resources (kest_translations() of the build).
namespace Translations {

/// Their languages, such as "de", each once.
QStringList languages();

/// Has texts in the user's language from now on, those of Qt included where they are installed; see
/// LanguageChoice. Prints a message if the user has set a language in which there are no texts.
/// Needs the application object, which owns the translations.
void install();

/// Has texts in English again, for what scripts read.
void remove();

} // namespace Translations
