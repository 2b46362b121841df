// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// A console for interactive use.
struct Console
{
    QString program; ///< the user's shell, or a program that starts it
    QStringList arguments;

    /// A shell with the folder in its search path.
    static Console finding(const QString& folder);
};
