// SPDX-License-Identifier: MIT
#pragma once

#include "SpaceMotion.h"

#include <QObject>

#include <memory>

/// A 3D mouse.
class SpaceMouse : public QObject
{
    Q_OBJECT

public:
    /// The user's 3D mouse; null where there is none, or nothing that could read it.
    static std::unique_ptr<SpaceMouse> create();

Q_SIGNALS:
    void moved(const SpaceMotion& motion);
    void fitRequested(); ///< a button was pressed
};
