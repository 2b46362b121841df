// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

/// The service that knows how the application runs.
class KEST_FOUNDATION_EXPORT common_IApplication
{
public:
    virtual ~common_IApplication();

    /// Whether the application runs without a user, so that nothing may wait for an answer.
    virtual bool isNonInteractive() const = 0;

protected:
    common_IApplication() = default;
    common_IApplication(const common_IApplication&) = default;
    common_IApplication& operator=(const common_IApplication&) = default;
};
