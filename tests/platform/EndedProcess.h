// SPDX-License-Identifier: MIT
#pragma once

#include <ProcessMark.h>

#include <QByteArray>
#include <QtTest>

#include <functional>

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

/// The mark of a process that has ended.
inline QString endedMark()
{
    return QString::fromLatin1(
        doneByAKilledProcess([] { return ProcessMark::own().word().toLatin1(); }));
}
