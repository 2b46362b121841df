// SPDX-License-Identifier: MIT
#include <common_ProcessRunner.h>

template class common_ProcessRunner<common_GenericProcessMessage>;
template class common_ProcessRunner<common_KestProcessMessage>;
