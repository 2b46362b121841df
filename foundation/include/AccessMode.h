// SPDX-License-Identifier: MIT
#pragma once

/// How a settings object uses its file: only one object at a time may have write access.
enum AccessMode {
    ReadWriteAccess = 0, ///< locks the file
    ReadOnlyAccess = 1   ///< takes no lock
};
