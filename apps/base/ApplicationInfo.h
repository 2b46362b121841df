// SPDX-License-Identifier: MIT
#pragma once

#include "ApplicationIdentity.h"

#include <common_IApplicationInfo.h>

/// Where this program and its user have their files.
class ApplicationInfo : public common_IApplicationInfo
{
public:
    explicit ApplicationInfo(ApplicationIdentity identity = {});

    QString applicationName() const override;
    QString installationDirectory() const override;

    /// KEST_USER_HOME, or the suite's folder among the user's settings where that is not set.
    QString userSettingsDirectory() const override;

    /// The installation folder.
    QString defaultSettingsDirectory() const override;

    QString initialRecentFile() const override;

private:
    ApplicationIdentity m_identity;
};
