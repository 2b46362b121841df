#pragma once

#include <common_RunWrapper.h>

#include <QStringList>

/// The words of the command line for the ways to run: "parallel", "remote", "farm-out".
struct RunOptionWord
{
    const char* word;
    common_RunWrapper::RunOption option;
    const char* meaning; ///< a sentence for the help
};

namespace RunOptionWords {

/// All of them.
const QVector<RunOptionWord>& rows();

/// Those of the options.
QStringList of(common_RunWrapper::RunOptions options);

/// The options of those words; words that are none count for nothing.
common_RunWrapper::RunOptions options(const QStringList& words);

} // namespace RunOptionWords
