#ifndef APPLICATIONINFO_H
#define APPLICATIONINFO_H

#include <common_IApplicationInfo.h>

#include <QString>

/// Where this program and its user have their files.
class ApplicationInfo : public common_IApplicationInfo
{
public:
    QString applicationName() const override;
    QString installationDirectory() const override;

    /// KEST_USER_HOME, or the suite's folder among the user's settings where that is not set.
    QString userSettingsDirectory() const override;

    /// The installation folder.
    QString defaultSettingsDirectory() const override;

    /// The installation's first model.
    QString initialRecentFile() const override;
};

#endif
