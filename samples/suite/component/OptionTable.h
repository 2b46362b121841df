// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

namespace suite {

/// The words of a command line belong to groups. A component's command line starts in its own
/// group; a switch such as "--prekest-options" begins the group of another component.
enum class OptionGroup {
    Common,
    Prekest,
    Runkest,
    Kest,
    Adaptkest,
    Optkest,
    Amrkest,
};

enum class ValueKind {
    None,
    Integer,      // within the row's limits
    Positive,     // a number greater than 0
    ProcessCount, ///< a number from 1, or "all"
    Word,         // one of the row's words
    Text,         // anything but an option
    Hosts,        // words, none of which looks like an option
    OptionalGpus, ///< "2", ":0,1", "2:0,1", or nothing
    Switch,       // none; the words behind it belong to the row's target group
};

struct OptionRow
{
    OptionGroup group;
    ValueKind kind;
    const char* name;
    int least;
    int most;
    const char* words; ///< separated by blanks
    OptionGroup target;
    const char* help;
};

/// The row of an option in a group; options of the common group are known in every group.
const OptionRow* optionRow(OptionGroup group, const QString& name);

/// All rows, for the help text.
QVector<OptionRow> optionRows();

} // namespace suite
