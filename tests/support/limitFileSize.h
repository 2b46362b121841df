// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// From now on no file of this process grows beyond a number of bytes, as on a disk that is full.
/// False where the system has no such limit.
bool limitFileSize(quint64 bytes);
