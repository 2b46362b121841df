// SPDX-License-Identifier: MIT
#pragma once

/// Draws a small scene by OpenGL, without a window. Returns 0 when it came out right; else 1, with
/// the reason on standard output.
int tryHardware();
