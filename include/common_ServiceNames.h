#pragma once

#include <kest_common_export.h>

#include <QStringList>

/// The names of the services' interfaces, by which messages refer to them.
namespace common_ServiceNames {

constexpr const char* application = "common_IApplication";
constexpr const char* applicationInfo = "common_IApplicationInfo";
constexpr const char* helpClient = "common_HelpClient";
constexpr const char* iconUtility = "common_IIconUtility";
constexpr const char* pixmapUtility = "common_IPixmapUtility";
constexpr const char* scriptRecorder = "common_IScriptRecorder"; ///< optional
constexpr const char* session = "common_ISession";
constexpr const char* splashScreen = "common_ISplashScreen"; ///< optional

/// All of them, in alphabetical order.
KEST_COMMON_EXPORT QStringList all();

} // namespace common_ServiceNames
