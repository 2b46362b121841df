// SPDX-License-Identifier: MIT
#pragma once

/// The window system that an application object needs.
enum class WindowSystem {
    None,      ///< nothing but the standard streams
    Offscreen, ///< widgets are drawn but never shown
    Display,   ///< widgets are shown
};
