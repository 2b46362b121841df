// SPDX-License-Identifier: MIT
#include <common_IProcessRunnerMediatorObserver.h>

common_IProcessRunnerMediatorObserver::~common_IProcessRunnerMediatorObserver() = default;
