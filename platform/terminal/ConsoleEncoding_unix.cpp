// SPDX-License-Identifier: MIT
#include "ConsoleEncoding.h"

ConsoleEncoding::ConsoleEncoding() = default;
ConsoleEncoding::~ConsoleEncoding() = default;
