#pragma once

#include <QStringList>

/// A console in which a user calls programs by hand.
struct Console
{
    QString program; ///< the user's shell, or what starts it
    QStringList arguments;

    /// A shell that finds the programs of a folder by their names.
    static Console finding(const QString& folder);
};
