// SPDX-License-Identifier: MIT
// What not every system has. The macros skip a test function where it is missing.
#pragma once

#include <QLibrary>
#include <QtTest>

/// Whether the tests run on Windows as Wine plays it.
namespace Wine {

inline bool isHere()
{
#ifdef Q_OS_WIN
    return QLibrary::resolve(QStringLiteral("ntdll"), "wine_get_version") != nullptr;
#else
    return false;
#endif
}

} // namespace Wine

/// What is different on Windows by design.
#ifdef Q_OS_WIN
#define SKIP_ON_WINDOWS(reason) QSKIP("on Windows, " reason)
#else
#define SKIP_ON_WINDOWS(reason)                                                                    \
    do {                                                                                           \
    } while (false)
#endif

/// On Windows, QFile::link() makes shortcuts, which only the desktop takes for what they point to.
#define SKIP_WITHOUT_SYMBOLIC_LINKS() SKIP_ON_WINDOWS("links are shortcuts of the desktop")

/// Programs that scripts of a shell play.
#define SKIP_WITHOUT_SHELL() SKIP_ON_WINDOWS("scripts of a shell are no programs")

/// Names of files that are not text.
#define SKIP_WITHOUT_BYTES_IN_NAMES() SKIP_ON_WINDOWS("all names are text")

/// /dev/full is a file that is on a full disk.
#define SKIP_WITHOUT_FULL_DEVICE() SKIP_ON_WINDOWS("there is no /dev/full")

/// On Windows, the arguments and variables of a program are text, and arguments have at most 32767
/// characters.
#define SKIP_WITHOUT_BYTES_IN_ARGUMENTS() SKIP_ON_WINDOWS("arguments and variables are text")
#ifdef Q_OS_WIN
#define SKIP_WITHOUT_LONG_ARGUMENTS(argument)                                                      \
    if ((argument).size() > 32000) {                                                               \
        QSKIP("on Windows, a command line has at most 32767 characters");                          \
    }
#else
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

/// The request of QProcess::terminate(), with which the library's dialog and runner stop processes.
#define SKIP_WITHOUT_TERMINATE()                                                                   \
    SKIP_ON_WINDOWS("QProcess::terminate() does not reach console programs")

/// Ends of processes by signals.
#define SKIP_WITHOUT_SIGNALS() SKIP_ON_WINDOWS("processes do not end by signals")

/// Limits of a thread's own time: only Linux counts the time in which others have the processors.
#define SKIP_WITHOUT_WAITING_TIMES()                                                               \
    SKIP_ON_WINDOWS("time in which other programs have the processors is not counted")

/// Runs that a parallel runtime spreads over processes and hosts: components refuse them where
/// there is none.
#define SKIP_WITHOUT_PARALLEL_RUNS() SKIP_ON_WINDOWS("components refuse parallel runs")

/// Programs and translations in the language of LANG and its like.
#define SKIP_WITHOUT_LANG() SKIP_ON_WINDOWS("the language is that of the system's settings")

/// Characters in names of files that Windows refuses, such as those of markup.
#define SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES()                                                     \
    SKIP_ON_WINDOWS("the characters < > : \" | ? * are not in names of files")

/// Requests to stop, which kestdesk sends to components. Wine delivers no console events.
#define SKIP_WITHOUT_STOP_REQUESTS()                                                               \
    if (Wine::isHere()) {                                                                          \
        QSKIP("Wine sends no console events, so a component that is stopped is killed");           \
    }

/// What Wine does in another way than Windows, or takes very many times as long for.
#define SKIP_UNDER_WINE(reason)                                                                    \
    if (Wine::isHere()) {                                                                          \
        QSKIP("under Wine, " reason);                                                              \
    }
