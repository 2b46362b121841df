// SPDX-License-Identifier: MIT
#pragma once

#include "Camera.h"

#include <QSize>
#include <QString>

/// A picture of a model, as the command line requests it.
struct PictureRequest
{
    QString model;
    QString output; ///< empty for a file beside the model
    QSize size;     ///< in pixels
    Direction direction = Direction::Isometric;
    bool isDark = false;
};

/// Makes the picture without a window. Prints the model's findings and the picture's name on
/// standard output, in the format of the suite's components. Returns the exit code.
int makePicture(const PictureRequest& request);
