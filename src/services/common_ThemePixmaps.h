// SPDX-License-Identifier: MIT
#pragma once

#include <common_IPixmapUtility.h>

/// Pictures of files and resources, or else, for the arrows of the process dialog, of the widgets'
/// style.
class common_ThemePixmaps : public common_IPixmapUtility
{
public:
    bool getPixmap(QPixmap& out, const QString& directory, const QString& name) override;
};
