// SPDX-License-Identifier: MIT
#include <common_IProcessMessage.h>

common_IProcessMessage::~common_IProcessMessage() = default;
