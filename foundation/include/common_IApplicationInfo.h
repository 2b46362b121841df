// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

class QString;

/// The service that knows the application and its folders.
class KEST_FOUNDATION_EXPORT common_IApplicationInfo
{
public:
    virtual ~common_IApplicationInfo();

    /// The application's name as users know it.
    virtual QString applicationName() const = 0;

    /// The suite's installation folder.
    virtual QString installationDirectory() const = 0;

    /// The folder of the user's settings files.
    virtual QString userSettingsDirectory() const = 0;

    /// The folder of the installation's default.ini.
    virtual QString defaultSettingsDirectory() const = 0;

    /// The file to offer while there are no recent files; empty for none.
    virtual QString initialRecentFile() const = 0;

protected:
    common_IApplicationInfo() = default;
    common_IApplicationInfo(const common_IApplicationInfo&) = default;
    common_IApplicationInfo& operator=(const common_IApplicationInfo&) = default;
};
