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

    /// Where the user's settings files are.
    virtual QString userSettingsDirectory() const = 0;

    /// Where the installation's default.ini is.
    virtual QString defaultSettingsDirectory() const = 0;

    /// The file to offer while there are no recent files; empty when there is none.
    virtual QString initialRecentFile() const = 0;

protected:
    common_IApplicationInfo() = default;
    common_IApplicationInfo(const common_IApplicationInfo&) = default;
    common_IApplicationInfo& operator=(const common_IApplicationInfo&) = default;
};
