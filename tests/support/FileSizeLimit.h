// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

#ifdef Q_OS_UNIX
#include <csignal>

#include <sys/resource.h>

/// While it lives, no file of this process, or of one that it starts, grows beyond a number of
/// bytes, as on a disk that is full.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        if (::getrlimit(RLIMIT_FSIZE, &m_before) != 0) {
            qFatal("cannot ask for the limit of file sizes");
        }
        const rlimit tight = {bytes, m_before.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &tight) != 0) {
            qFatal("cannot limit file sizes");
        }
    }

    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*m_signal)(int);
    rlimit m_before = {};
};

#define SKIP_WITHOUT_FILE_SIZE_LIMITS()                                                            \
    do {                                                                                           \
    } while (false)
#else
/// Windows knows no such limit.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64) { qFatal("there are no limits of file sizes"); }
};

#define SKIP_WITHOUT_FILE_SIZE_LIMITS() QSKIP("Windows has no limit for the sizes of files")
#endif
