// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QString>

/// An option of a single application.
struct ApplicationOption
{
    QCommandLineOption option;
    bool needsNonInteractive = false;
    QString windowHint; ///< the equivalent in the window; may be empty
};
