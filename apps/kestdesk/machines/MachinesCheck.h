// SPDX-License-Identifier: MIT
#pragma once

#include "HostCheck.h"
#include "Terminal.h"

#include <MachinesFile.h>

#include <QObject>
#include <QVector>

#include <deque>
#include <memory>

/// Checks the hosts of a machines file, several at a time, and prints the results in the order of
/// the file.
class MachinesCheck : public QObject
{
    Q_OBJECT

public:
    MachinesCheck(const suite::MachinesFile& file, int limitSeconds);

    /// The application's exit code: 0 if all hosts answer, 1 if one does not, 2 if there is no
    /// program to connect to them, 130 if stopped.
    int exec();

private:
    bool needsRemoteShell() const;
    void startMore();
    void showDone();
    void show(const QString& host, const HostCheck& check);
    void stop();
    int leave(int exitCode);

    QVector<suite::MachinesFile::Entry> m_hosts;
    int m_limit; ///< seconds
    Terminal m_output;
    std::deque<std::unique_ptr<HostCheck>> m_checks; ///< those that are not shown yet
    int m_shown = 0;
    bool m_failed = false;
    bool m_lookupLeft = false;
};
