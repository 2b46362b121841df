// SPDX-License-Identifier: MIT
#pragma once

#include <common_IPixmapUtility.h>

/// The suite's pictures: drawings in the text colour of the palette, sharp on the screen with the
/// most pixels.
class PixmapUtility : public common_IPixmapUtility
{
public:
    PixmapUtility();

    /// Without a window system there are no pictures.
    bool getPixmap(QPixmap& out, const QString& directory, const QString& name) override;
};
