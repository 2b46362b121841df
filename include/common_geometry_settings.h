// SPDX-License-Identifier: MIT
#pragma once

#include <common_settings.h>
#include <kest_common_export.h>

/// The position and size of an application's main window, in pixels: the group "geometry" of its
/// settings file.
class KEST_COMMON_EXPORT common_geometry_settings : public common_settings
{
public:
    /// Has the defaults until readSettings().
    explicit common_geometry_settings(const QString& fileName);
    common_geometry_settings(const common_geometry_settings& other);
    common_geometry_settings& operator=(const common_geometry_settings& other) = default;
    ~common_geometry_settings() override;

    /// The left edge of the window, in pixels of the screen.
    int x_pos() const { return m_values.xPosition; }
    /// The top edge of the window, in pixels of the screen.
    int y_pos() const { return m_values.yPosition; }
    /// The width of the window that is not maximised, in pixels.
    int width() const { return m_values.width; }
    /// The height of the window that is not maximised, in pixels.
    int height() const { return m_values.height; }
    /// Whether the window is maximised.
    bool isMaximised() const { return m_values.maximised; }

    /// In pixels; not checked, and not written before writeSettings(). So are the others.
    void set_x_pos(int position) { m_values.xPosition = position; }
    /// In pixels; not checked.
    void set_y_pos(int position) { m_values.yPosition = position; }
    /// In pixels; not checked.
    void set_width(int width) { m_values.width = width; }
    /// In pixels; not checked.
    void set_height(int height) { m_values.height = height; }
    /// Position and size are kept for when the window is not maximised.
    void set_isMaximised(bool maximised) { m_values.maximised = maximised; }

    /// Copies the values of the other object, and not its file name.
    void copy(const common_geometry_settings& other);

    /// Maximised; the window's normal size is 1020 by 720 at the screen's top left corner.
    void restoreDefaults() override;

protected:
    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    struct Values
    {
        int xPosition = 0;
        int yPosition = 0;
        int width = 1020;
        int height = 720;
        bool maximised = true;
    };

    Values m_values;
};
