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

/* What KEST_binfiles_set_lock_hard returns. */
enum KEST_binfiles_lock_status {
    KEST_BINFILES_LOCK_TAKEN = 0,
    KEST_BINFILES_LOCKED_BY_OTHER_PROCESS = 1,
    KEST_BINFILES_LOCKED_BY_THIS_PROCESS = 2,
    KEST_BINFILES_LOCK_NOT_MADE = 3 /* no such directory that could be made, or no permission */
};

/* Locks a file against all other processes; the file itself need not exist and is not touched. The
   lock is a file beside it, with ".kestlock" added to the name; folders that are missing are made,
   and links to the file are followed, so that each of its paths means the same lock.

   The lock of a process that has ended, by whatever means, is taken over. Nobody is waited for but
   an owner that has just made the lock or was just killed, and for that half a second at most. A
   lock file of any size and content is judged in that time. The lock is not made where something
   else than a file, a pipe for example, is in the place of the lock file.

   The option is not used. The handle is set only when the lock is taken, and never to 0 then. */
KEST_BINFILES_EXPORT int KEST_binfiles_set_lock_hard(const wchar_t* path, int option,
                                                     uint64_t* handle);

/* Removes the lock that the handle stands for: 0, or 1 when it stands for no lock of this file (any
   more); then nothing happens. */
KEST_BINFILES_EXPORT int KEST_binfiles_remove_lock(const wchar_t* path, uint64_t handle);

/* Removes the lock of the file if it is older than that and its process does not live on this
   machine: for locks that nobody holds that long. What was locked by another machine is removed by
   its age alone, which KEST_binfiles_set_lock_hard never does. */
KEST_BINFILES_EXPORT void KEST_binfiles_remove_left_lock(const wchar_t* path, int64_t milliseconds);

/* Who holds the lock of the file, as far as that can be told: the process id and the host's name,
   as UTF-8, cut to the buffer. 0 and no name when nobody does or it cannot be told. */
KEST_BINFILES_EXPORT int64_t KEST_binfiles_lock_owner(const wchar_t* path, char* host,
                                                      size_t hostSize);

/* The same with the file name of the owner's program, which may be empty. */
KEST_BINFILES_EXPORT int64_t KEST_binfiles_lock_owner_program(const wchar_t* path, char* host,
                                                              size_t hostSize, char* program,
                                                              size_t programSize);

#ifdef __cplusplus
}
#endif
