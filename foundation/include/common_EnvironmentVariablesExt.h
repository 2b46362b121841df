// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

class QString;

/// Environment variables whose values may refer to other variables.
class KEST_FOUNDATION_EXPORT common_EnvironmentVariablesExt
{
public:
    /// The variable's value with every reference ${NAME}, $NAME and %NAME% in it expanded, also
    /// those that expansion brings in; empty when the variable is unset.
    ///
    /// A NAME is a letter or "_" followed by letters, digits and "_". A reference to an unset
    /// variable expands to nothing, and so does one to a variable that is being expanded already,
    /// directly or through others. A "$" or "%" that begins no reference stays as it is.
    static QString getVariableExpanded(const char* name);
};
