#pragma once

#include "HostCheck.h"
#include "Terminal.h"

#include <MachinesFile.h>

#include <QObject>
#include <QVector>

#include <deque>
#include <memory>

/// Checks the hosts of a machines file, several at a time, and shows in the file's order what was
/// found out.
class MachinesCheck : public QObject
{
    Q_OBJECT

public:
    MachinesCheck(const suite::MachinesFile& file, int limitSeconds);

    /// The application's exit code: 0 all hosts answer, 1 one does not, 2 there is no program to
    /// reach them with, 130 stopped.
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
