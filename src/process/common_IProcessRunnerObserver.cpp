// SPDX-License-Identifier: MIT
#include <common_IProcessRunnerObserver.h>

common_IProcessRunnerObserver::~common_IProcessRunnerObserver() = default;

template class common_ObserverConnection<common_IProcessRunnerObserver>;
template class common_ObservableVia<common_IProcessRunnerObserver>;
template class common_ObserverOf<common_IProcessRunnerObserver>;
template class common_MultiObserverOf<common_IProcessRunnerObserver>;
