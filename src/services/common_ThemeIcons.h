// SPDX-License-Identifier: MIT
#pragma once

#include <common_IIconUtility.h>

/// Icons of the desktop's theme, or else of the widgets' style.
class common_ThemeIcons : public common_IIconUtility
{
public:
    QIcon getIcon(const QString& name) override;
};
