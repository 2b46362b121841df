// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

class QString;

/// One typed piece of what a child process printed.
class KEST_COMMON_EXPORT common_IProcessMessage
{
public:
    /// What a message is. The numbers are fixed.
    enum Type {
        Output = 0,          ///< ordinary output
        LineFeed = 1,        ///< the child asks for a line break; no text
        Percentage = 2,      ///< progress of the current phase, a decimal integer
        TotalPercentage = 3, ///< progress of the whole run, a decimal integer
        Error = 4,           ///< an error
        Warning = 5,         ///< a warning
        Notice = 6,          ///< a notice
        File = 7,            ///< the name of a file that the child reports
        Variable = 8         ///< a variable that the child reports
    };

    virtual ~common_IProcessMessage();

    /// What the child printed, without the marker of its type.
    virtual QString getText() const = 0;
    /// What the text is.
    virtual Type getType() const = 0;

protected:
    common_IProcessMessage() = default;
    common_IProcessMessage(const common_IProcessMessage&) = default;
    common_IProcessMessage(common_IProcessMessage&&) = default;
    common_IProcessMessage& operator=(const common_IProcessMessage&) = default;
    common_IProcessMessage& operator=(common_IProcessMessage&&) = default;
};
