// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QStringList>

/// The names of the services' interfaces, by which messages refer to them.
namespace common_ServiceNames {

/// Whether there is a user.
constexpr const char* application = "common_IApplication";
/// Folders of the installation and of the user.
constexpr const char* applicationInfo = "common_IApplicationInfo";
/// Help pages.
constexpr const char* helpClient = "common_HelpClient";
/// Icons by their names.
constexpr const char* iconUtility = "common_IIconUtility";
/// Pictures by their names.
constexpr const char* pixmapUtility = "common_IPixmapUtility";
constexpr const char* scriptRecorder = "common_IScriptRecorder"; ///< optional
/// Shows messages to the user.
constexpr const char* session = "common_ISession";
constexpr const char* splashScreen = "common_ISplashScreen"; ///< optional

/// All of them, in alphabetical order.
KEST_COMMON_EXPORT QStringList all();

} // namespace common_ServiceNames
