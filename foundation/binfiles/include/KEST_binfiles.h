// SPDX-License-Identifier: MIT
#pragma once

#include <kest_binfiles_export.h>

#ifdef __cplusplus
#include <cstddef>
#include <cstdint>
extern "C" {
#else
#include <stddef.h>
#include <stdint.h>
#include <wchar.h>
#endif

/* Locks of files. Link kest::binfiles; kest::common alone does not have this header. */

/* What KEST_binfiles_set_lock_hard returns. */
enum KEST_binfiles_lock_status {
    KEST_BINFILES_LOCK_TAKEN = 0,
    KEST_BINFILES_LOCKED_BY_OTHER_PROCESS = 1,
    KEST_BINFILES_LOCKED_BY_THIS_PROCESS = 2,
    KEST_BINFILES_LOCK_NOT_MADE = 3 /* no permission, or the folder is missing and cannot be made */
};

/* Locks a file against all other processes. The file itself need not exist and is not changed. The
   lock is a file beside it, with ".kestlock" added to the name. Missing folders are made. Links to
   the file are followed, so that all paths of a file mean the same lock.

   The lock of a process that has ended, in whatever way, is taken over. The function waits only for
   an owner that has just made the lock or was just killed, and at most half a second, whatever the
   size and content of the lock file. No lock is made when the lock file's name belongs to something
   that is not a regular file, such as a pipe.

   The option is not used. The handle is set only when the lock is taken, and is never 0 then. */
KEST_BINFILES_EXPORT int KEST_binfiles_set_lock_hard(const wchar_t* path, int option,
                                                     uint64_t* handle);

/* Removes the lock that the handle stands for. Returns 0, or 1 when the handle stands for no lock
   of this file; then nothing happens. */
KEST_BINFILES_EXPORT int KEST_binfiles_remove_lock(const wchar_t* path, uint64_t handle);

/* Removes the lock of the file if it is older than that many milliseconds and its process does not
   run on this machine. For locks that are only held for a moment: unlike in
   KEST_binfiles_set_lock_hard, the lock of another machine is removed by its age alone. */
KEST_BINFILES_EXPORT void KEST_binfiles_remove_left_lock(const wchar_t* path, int64_t milliseconds);

/* The owner of the file's lock: returns its process id and writes the host's name, as UTF-8, cut to
   the size of the buffer. 0 and an empty name when there is no owner, or it is not known. */
KEST_BINFILES_EXPORT int64_t KEST_binfiles_lock_owner(const wchar_t* path, char* host,
                                                      size_t hostSize);

/* The same, and writes the file name of the owner's program, which may be empty. */
KEST_BINFILES_EXPORT int64_t KEST_binfiles_lock_owner_program(const wchar_t* path, char* host,
                                                              size_t hostSize, char* program,
                                                              size_t programSize);

#ifdef __cplusplus
}
#endif
