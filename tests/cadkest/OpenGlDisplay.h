// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

/// Whether this test runs on a display with OpenGL.
inline bool hasOpenGl()
{
    return !qEnvironmentVariableIsEmpty("KEST_NEEDS_OPENGL");
}

/// Whether the test function is to return at once, which is told as a skip then.
inline bool isSkipped(bool condition, const char* reason)
{
    if (condition) {
        QTest::qSkip(reason, __FILE__, __LINE__);
    }
    return condition;
}
