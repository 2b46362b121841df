// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

class QIcon;
class QString;

/// The service that provides the suite's icons.
class KEST_FOUNDATION_EXPORT common_IIconUtility
{
public:
    virtual ~common_IIconUtility();

    /// The icon of that name; a null icon when there is none.
    virtual QIcon getIcon(const QString& name) = 0;

protected:
    common_IIconUtility() = default;
    common_IIconUtility(const common_IIconUtility&) = default;
    common_IIconUtility& operator=(const common_IIconUtility&) = default;
};
