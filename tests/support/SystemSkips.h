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
