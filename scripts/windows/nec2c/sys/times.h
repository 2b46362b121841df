/* What nec2c uses of POSIX and mingw-w64 does not have: build-libraries compiles it with this
 * header. */
#pragma once

#include <signal.h>
#include <time.h>

struct tms
{
    clock_t tms_utime;
    clock_t tms_stime;
};

/* The time since the program began, as the user's part. */
static inline clock_t times(struct tms* buffer)
{
    buffer->tms_utime = clock();
    buffer->tms_stime = 0;
    return buffer->tms_utime;
}

#define _SC_CLK_TCK 0
static inline long sysconf(int name)
{
    (void)name;
    return CLOCKS_PER_SEC;
}

struct sigaction
{
    void (*sa_handler)(int);
    int sa_mask;
    int sa_flags;
};

static inline int sigemptyset(int* mask)
{
    *mask = 0;
    return 0;
}

static inline int sigaction(int number, const struct sigaction* action, struct sigaction* before)
{
    (void)before;
    return signal(number, action->sa_handler) == SIG_ERR ? -1 : 0;
}
