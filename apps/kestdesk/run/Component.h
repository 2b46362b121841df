#pragma once

#include <common_RunWrapper.h>

#include <QString>

/// A solver component that can be run from here.
struct Component
{
    using SetUp = bool (common_RunWrapper::*)(common_RunWrapper::Runner& runner,
                                              const QFileInfo& model,
                                              QFlags<common_RunWrapper::RunOption> options);

    const char* name;
    common_RunWrapper::RunOptions options; ///< those that make a difference to it
    SetUp setUp;

    /// Null when there is no such component.
    static const Component* find(const QString& name);

    /// The names of those that know the options, or of all, as "a, b, c".
    static QString names(common_RunWrapper::RunOptions options = {});
};
