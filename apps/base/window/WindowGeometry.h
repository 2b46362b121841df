#pragma once

class QWidget;
class common_geometry_settings;

/// A main window's place, kept from session to session.
namespace WindowGeometry {

/// Puts the window where the settings say, or onto the first screen when that place is on none. As
/// long as the user has no settings file, the window is in the middle, and not maximised: an empty
/// one would fill the screen with nothing.
void restore(QWidget& window, const common_geometry_settings& settings);

/// Notes where the window is; for a maximised one where it was before.
void save(const QWidget& window, common_geometry_settings& settings);

} // namespace WindowGeometry
