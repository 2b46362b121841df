// SPDX-License-Identifier: MIT
#pragma once

#include "SceneView.h"

#include <QDialog>

class common_RenderingSettingsWidget;

class RenderingSettings;

/// The settings dialog's page about rendering. The view follows the slider while it is moved, and
/// goes back when the dialog is cancelled.
class RenderingDialog : public QDialog
{
    Q_OBJECT

public:
    /// Neither is the dialog's; both must live longer.
    RenderingDialog(SceneView* view, RenderingSettings* settings, QWidget* parent);

    void done(int result) override;

Q_SIGNALS:
    /// The user's choice stands in the settings and has been written.
    void applied();

private:
    void showSettings(const RenderingSettings& settings);
    void showDefaults();
    void apply();

    SceneView* m_view;
    RenderingSettings* m_settings;
    common_RenderingSettingsWidget* m_widget;
};
