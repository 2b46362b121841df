// SPDX-License-Identifier: MIT
#pragma once

#include <common_RunWrapper.h>

#include <QStringList>

/// The command line's words for the run options: "parallel", "remote", "farm-out".
struct RunOptionWord
{
    const char* word;
    common_RunWrapper::RunOption option;
    const char* meaning; ///< a sentence for the help
};

namespace RunOptionWords {

/// All words, one row each.
const QVector<RunOptionWord>& rows();

/// The meaning of a row in the user's language.
QString shown(const RunOptionWord& row);

/// The words of the options.
QStringList of(common_RunWrapper::RunOptions options);

/// The options of the words. Unknown words are ignored.
common_RunWrapper::RunOptions options(const QStringList& words);

} // namespace RunOptionWords
