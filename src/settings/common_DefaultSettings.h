// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// The path of the installation's default.ini. Asserts that the common_IApplicationInfo service
/// exists, with the file and the line of the caller.
QString common_defaultSettingsFile(const char* file, int line);
