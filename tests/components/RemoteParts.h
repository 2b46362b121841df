// SPDX-License-Identifier: MIT
#pragma once

#include "MarkedRuns.h"
#include "SuiteRun.h"

#include <Text.h>

#include <QFile>

// Plays ssh: the last argument is the command, which gets a session of its own as on another host.
// The process ids of both directions stand in a file. The one that goes there also holds the end
// for reading: otherwise a heartbeat after the end of the command would kill it, and the last words
// would be lost where the other direction is late. Each process holds both pipes before it opens
// its own end: when this one is killed early, nobody waits for ever for the other end.
inline QByteArray goodSsh()
{
    return "for word; do printf '%s\\n' \"$word\"; done > \"$SSH_LOG\"\n"
           "for command; do :; done\n"
           "rm -f \"$SSH_LOG\".in \"$SSH_LOG\".out\n"
           "mkfifo \"$SSH_LOG\".in \"$SSH_LOG\".out\n"
           "exec 3<> \"$SSH_LOG\".in 4<> \"$SSH_LOG\".out\n"
           "setsid sh -c \"$command\" < \"$SSH_LOG\".in > \"$SSH_LOG\".out 3>&- 4>&- &\n"
           "cat < \"$SSH_LOG\".out 3>&- 4>&- &\n"
           "echo $! > \"$SSH_LOG\".ids\n"
           "echo $$ >> \"$SSH_LOG\".ids\n"
           "exec cat 1>&3 3>&- 4>&-\n";
}

// The environment of runs whose ssh is this shell script.
inline QProcessEnvironment remoteEnvironment(const MarkedRuns& runs, const QByteArray& script,
                                             QProcessEnvironment environment)
{
    const QString ssh = writeFile(runs.folder(), text("ssh"), "#!/bin/sh\n" + script);
    QFile::setPermissions(ssh, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    environment.insert(text("KEST_SSH"), ssh);
    environment.insert(text("SSH_LOG"), runs.path(text("ssh.log")));
    environment.insert(text("KEST_SILENCE_LIMIT"), text("2000"));
    return environment;
}
