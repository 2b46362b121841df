// SPDX-License-Identifier: MIT
// What not every system has. The macros skip a test function where it is missing.
#pragma once

#include <QtTest>

/// On Windows, QFile::link() makes shortcuts, which only the desktop takes for what they point to.
#ifdef Q_OS_WIN
#define SKIP_WITHOUT_SYMBOLIC_LINKS() QSKIP("on Windows, links are shortcuts of the desktop")
#else
#define SKIP_WITHOUT_SYMBOLIC_LINKS()                                                              \
    do {                                                                                           \
    } while (false)
#endif

/// Programs that scripts of a shell play.
#ifdef Q_OS_WIN
#define SKIP_WITHOUT_SHELL() QSKIP("on Windows, scripts of a shell are no programs")
#else
#define SKIP_WITHOUT_SHELL()                                                                       \
    do {                                                                                           \
    } while (false)
#endif

/// Names of files that are not text.
#ifdef Q_OS_WIN
#define SKIP_WITHOUT_BYTES_IN_NAMES() QSKIP("on Windows, all names are text")
#else
#define SKIP_WITHOUT_BYTES_IN_NAMES()                                                              \
    do {                                                                                           \
    } while (false)
#endif

/// /dev/full is a file that is on a full disk.
#ifdef Q_OS_WIN
#define SKIP_WITHOUT_FULL_DEVICE() QSKIP("on Windows, there is no /dev/full")
#else
#define SKIP_WITHOUT_FULL_DEVICE()                                                                 \
    do {                                                                                           \
    } while (false)
#endif

/// On Windows, the arguments and variables of a program are text, and arguments have at most 32767
/// characters.
#ifdef Q_OS_WIN
#define SKIP_WITHOUT_BYTES_IN_ARGUMENTS() QSKIP("on Windows, arguments and variables are text")
#define SKIP_WITHOUT_LONG_ARGUMENTS(argument)                                                      \
    if ((argument).size() > 32000) {                                                               \
        QSKIP("on Windows, a command line has at most 32767 characters");                          \
    }
#else
#define SKIP_WITHOUT_BYTES_IN_ARGUMENTS()                                                          \
    do {                                                                                           \
    } while (false)
#define SKIP_WITHOUT_LONG_ARGUMENTS(argument)                                                      \
    do {                                                                                           \
    } while (false)
#endif

/// KEST_SILENT_FILES is a library that is preloaded into programs: in them, files in a folder
/// "silent" do not answer, as on a network that is gone.
#ifdef KEST_SILENT_FILES
#define SKIP_WITHOUT_SILENT_FILES()                                                                \
    do {                                                                                           \
    } while (false)
#else
#define KEST_SILENT_FILES ""
#define SKIP_WITHOUT_SILENT_FILES() QSKIP("on Windows, no library is preloaded into programs")
#endif
