#pragma once

#include <common_RunWrapper.h>

#include <QString>

/// A run that waits for its turn.
struct QueuedRun
{
    int id = 0;        ///< in its queue, for as long as the queue lives
    QString component; ///< name of one that there is
    QString model;     ///< absolute path
    common_RunWrapper::RunOptions options;
    bool isHeld = false; ///< is passed over until the user releases it
};
