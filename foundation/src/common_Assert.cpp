// SPDX-License-Identifier: MIT
#include <common_Assert.h>

#include <QMessageLogger>

void common_assertionFailed(const char* text, const char* file, int line)
{
    QMessageLogger(file, line, nullptr).fatal("%s (%d): Assertion failed: %s", file, line, text);
}
