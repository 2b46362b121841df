// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Which of the suite's applications this is.
struct ApplicationIdentity
{
    QString name;

    /// Offered while there are no recent files: a path below the installation folder, or empty.
    QString initialRecentFile;
};
