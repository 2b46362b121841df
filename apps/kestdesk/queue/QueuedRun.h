// SPDX-License-Identifier: MIT
#pragma once

#include <common_RunWrapper.h>

#include <QString>

/// A run that waits for its turn.
struct QueuedRun
{
    int id = 0;        ///< unique within its queue, not kept on the disk
    QString component; ///< name of a known component
    QString model;     ///< absolute path
    common_RunWrapper::RunOptions options;
    bool isHeld = false; ///< does not start until the user releases it
};
