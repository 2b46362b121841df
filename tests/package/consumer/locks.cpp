// SPDX-License-Identifier: MIT
#include <KEST_binfiles.h>

// Whether an unlocked file has no owner.
int main()
{
    char host[64] = "";
    return KEST_binfiles_lock_owner(L"/no/such/file", host, sizeof host) == 0 ? 0 : 1;
}
