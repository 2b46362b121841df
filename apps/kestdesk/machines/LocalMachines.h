// SPDX-License-Identifier: MIT
#pragma once

#include "MachinesFileStore.h"

#include <MachinesFile.h>

/// Makes this machine, with all its processors, the only host in the user's machines file.
class LocalMachines
{
public:
    enum class State {
        Free,      ///< names no host
        Done,      ///< names this machine and no other
        Taken,     ///< names hosts, or has lines that are wrong
        NotChanged ///< cannot be changed by this class; see error()
    };

    /// Reads the file in use. Needs the service common_IApplicationInfo.
    LocalMachines();

    /// The line for this machine: "localhost:4".
    static QString line();

    State state() const;

    /// The user's file.
    QString fileName() const { return m_store.fileName(); }

    /// The file in use: the user's or the installation's.
    QString origin() const { return m_store.origin(); }

    /// The first of the file's hosts with their processes, as "a:4, b:1 and 7 more".
    QString hosts() const;

    /// Why the file cannot be changed.
    QString error() const;

    /// Saves the user's file in one step: this machine, then the content of the file in use, with
    /// the lines that name hosts as comments. Returns why the file was not changed; empty on
    /// success.
    QString save();

private:
    QByteArray content() const;

    MachinesFileStore m_store;
    suite::MachinesFile m_file;
};
