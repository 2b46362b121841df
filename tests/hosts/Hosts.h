// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QStringList>

// The three hosts that with-hosts has made.
class Hosts
{
public:
    // True when the test program was started by with-hosts.
    static bool areThere();

    static QStringList names();

    // Prepares a program to be started on node1, as a user there would start it; its process is
    // the program's own.
    static void prepare(QProcess& process, const QString& program, const QStringList& arguments,
                        const QString& folder);

    // Takes a host off the network, and joins it again.
    static bool cutOff(const QString& host);
    static bool join(const QString& host);

    // The names of the processes on a host; those that make it a host, or a node of a cluster, do
    // not count.
    static QStringList processes(const QString& host);

    // The same of all hosts, as "host program".
    static QStringList allProcesses();

    // What stands in the folders for temporary files.
    static QStringList temporaryFiles();

    static QString temporaryFolder(const QString& host);
};
