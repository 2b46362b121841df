// SPDX-License-Identifier: MIT
#pragma once

#include <common_RunWrapper.h>

#include <QString>

/// A solver component that kestdesk can run.
struct Component
{
    using SetUp = bool (common_RunWrapper::*)(common_RunWrapper::Runner& runner,
                                              const QFileInfo& model,
                                              QFlags<common_RunWrapper::RunOption> options);

    const char* name;
    common_RunWrapper::RunOptions options; ///< the ones that the component supports
    SetUp setUp;

    /// The component with that name; null if there is none. Owned by a static table.
    static const Component* find(const QString& name);

    /// The names of the components that support all of the options, as "a, b, c"; of all components
    /// without options.
    static QString names(common_RunWrapper::RunOptions options = {});
};
