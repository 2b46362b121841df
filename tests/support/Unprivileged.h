// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <unistd.h>

/// While it lives, this process may do with files what somebody without rights may, whoever runs
/// it.
class Unprivileged
{
public:
    Unprivileged()
    {
        if (m_isRoot && ::setresuid(nobody, nobody, 0) != 0) {
            qFatal("cannot become nobody");
        }
    }

    ~Unprivileged()
    {
        if (m_isRoot && ::setresuid(0, 0, 0) != 0) {
            qFatal("cannot become the administrator again");
        }
    }

    /// Makes a file or folder belong to whom this process is then.
    static bool give(const QString& path)
    {
        return ::geteuid() != 0 ||
               ::chown(QFile::encodeName(path).constData(), nobody, gid_t(-1)) == 0;
    }

    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

private:
    static constexpr uid_t nobody = 65534;

    bool m_isRoot = ::geteuid() == 0;
};

#define SKIP_WITHOUT_OTHER_USERS()                                                                 \
    do {                                                                                           \
    } while (false)
#else
/// On Windows, a process stays the user's that started it.
class Unprivileged
{
public:
    Unprivileged() { qFatal("there is no other user"); }

    static bool give(const QString&) { return false; }
};

#define SKIP_WITHOUT_OTHER_USERS() QSKIP("on Windows, a process cannot become another user")
#endif
