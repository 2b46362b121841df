// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

/// The service that controls the window shown while the application starts.
class KEST_FOUNDATION_EXPORT common_ISplashScreen
{
public:
    virtual ~common_ISplashScreen();

    /// Hides the splash screen, for example while a message is shown.
    virtual void hide() = 0;

    /// Shows it again.
    virtual void show() = 0;

protected:
    common_ISplashScreen() = default;
    common_ISplashScreen(const common_ISplashScreen&) = default;
    common_ISplashScreen& operator=(const common_ISplashScreen&) = default;
};
