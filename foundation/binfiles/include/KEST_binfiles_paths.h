// SPDX-License-Identifier: MIT
#pragma once

#include <kest_binfiles_export.h>

#include <QString>

/// The absolute path of the file that a path leads to, with all links followed; the file need not
/// exist. All paths of one file give the same result, which can therefore be used as a key.
KEST_BINFILES_EXPORT QString KEST_binfiles_real_path(const QString& path);
