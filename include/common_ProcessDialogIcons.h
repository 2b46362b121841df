// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QStringList>

/// The names that common_KestProcessDialog asks the services common_IIconUtility and
/// common_IPixmapUtility for.
namespace common_ProcessDialogIcons {

// Icons. A service may answer with a null icon.
constexpr const char* info = "info";       ///< of notices
constexpr const char* warning = "warning"; ///< of warnings
constexpr const char* fault = "fault";     ///< of errors, and of OK after a run with a fault
constexpr const char* valid = "valid";     ///< of OK after a valid run
constexpr const char* play = "play";       ///< of OK before
constexpr const char* exclude = "exclude"; ///< of Stop

// Pictures. Both must exist: a missing one is a fatal assertion.
/// The directory in the application's resources that has the arrows.
constexpr const char* pictureDirectory = ":/rc/images";
constexpr const char* detailsShown = "show_details_arrow"; ///< while the details are open
constexpr const char* detailsHidden = "hide_arrow";        ///< while they are closed

/// The names of all icons.
KEST_COMMON_EXPORT QStringList icons();

/// The names of all pictures.
KEST_COMMON_EXPORT QStringList pictures();

} // namespace common_ProcessDialogIcons
