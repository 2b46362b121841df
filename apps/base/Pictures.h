// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The drawings that are part of every application.
namespace Pictures {

/// Makes them known to Qt, which a static library must ask for.
void load();

/// Where they are.
QString directory();

/// The file of a drawing.
QString fileName(const QString& directory, const QString& name);

} // namespace Pictures
