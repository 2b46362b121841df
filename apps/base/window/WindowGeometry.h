// SPDX-License-Identifier: MIT
#pragma once

class QWidget;
class common_geometry_settings;

/// The geometry of a main window, kept between sessions.
namespace WindowGeometry {

/// Restores the geometry, on the first screen if it is outside of all screens. Without a settings
/// file the window is centred and not maximised: an empty window need not fill the screen.
void restore(QWidget& window, const common_geometry_settings& settings);

/// Stores the geometry; for a maximised window the one before.
void save(const QWidget& window, common_geometry_settings& settings);

} // namespace WindowGeometry
