#pragma once

#include <QCommandLineOption>
#include <QString>

/// An option that only one application has.
struct ApplicationOption
{
    QCommandLineOption option;
    bool needsNonInteractive = false;
    QString windowHint; ///< what the window has in place of it; may be empty
};
