// SPDX-License-Identifier: MIT
#pragma once

#include <ProcessMark.h>
#include <RunningProcesses.h>

#include <QByteArray>
#include <QProcess>
#include <QtTest>

#include <functional>

#ifndef Q_OS_WIN
#include <sys/wait.h>
#include <unistd.h>

/// Does something in a process of its own, which is killed then as by "kill -9": nothing that it
/// has made is cleared away. Returns what the deed returns, a word of at most 4 KB.
inline QByteArray doneByAKilledProcess(const std::function<QByteArray()>& deed)
{
    int channel[2] = {};
    if (::pipe(channel) != 0) {
        qFatal("no pipe");
    }
    const pid_t child = ::fork();
    if (child == 0) {
        const QByteArray word = deed();
        if (::write(channel[1], word.constData(), std::size_t(word.size())) != word.size()) {
            ::_exit(1);
        }
        ::raise(SIGKILL);
    }
    ::close(channel[1]);
    QByteArray word(4096, Qt::Uninitialized);
    word.resize(
        int(std::max<ssize_t>(::read(channel[0], word.data(), std::size_t(word.size())), 0)));
    ::close(channel[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFSIGNALED(status)) {
        qFatal("the process did not do its deed");
    }
    return word;
}

#endif

/// The mark of a process that has been killed.
inline QString endedMark()
{
#ifdef Q_OS_WIN
    const QString waiting = QStringLiteral("cmd"); // for its input
#else
    const QString waiting = QStringLiteral("cat");
#endif
    QProcess process;
    process.start(waiting, QStringList());
    if (!process.waitForStarted()) {
        qFatal("no process");
    }
    QStringList parts = ProcessMark::own().word().split(QLatin1Char('-'));
    parts[2] = QString::number(process.processId());
    parts[3] = QString::number(RunningProcesses::startTime(process.processId()).value_or(0));
    if (ProcessMark::parse(parts.join(QLatin1Char('-')))->hasEnded()) {
        qFatal("it has ended too early");
    }
    process.kill();
    process.waitForFinished();
    return parts.join(QLatin1Char('-'));
}
