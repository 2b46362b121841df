#pragma once

class QString;

/// The installation's default.ini; asserts that the common_IApplicationInfo service is there, for
/// which the file and the line of the caller are named.
QString common_defaultSettingsFile(const char* file, int line);
