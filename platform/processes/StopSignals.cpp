// SPDX-License-Identifier: MIT
#include "StopSignals.h"

void StopSignals::watch(QObject* receiver, const std::function<void()>& onStop)
{
    watch(receiver, std::function<void(int)>([onStop](int /*number*/) { onStop(); }));
}
