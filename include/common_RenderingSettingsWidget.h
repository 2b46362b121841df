// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QWidget>

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QLabel;
class QRadioButton;
class QSlider;
class QSpacerItem;
class QVBoxLayout;

/// The panel on which the user chooses between hardware and software 3D rendering and tunes the
/// face displacement: how far faces are pushed back so that edges drawn on them stay visible.
///
/// It keeps no settings. The dialog that embeds it sets the controls, reads them, connects to the
/// signals, and decides what a slider's value of 0 to 32 means for the renderer.
class KEST_COMMON_EXPORT common_RenderingSettingsWidget : public QWidget
{
    Q_OBJECT

public:
    /// In mode 1 there is one slider for everything, in any other mode one for geometry and one for
    /// meshes. The name, in Latin-1, becomes the object name; null means
    /// "common_Rendering_Settings_Widget".
    explicit common_RenderingSettingsWidget(QWidget* parent = nullptr, const char* name = nullptr,
                                            Qt::WindowFlags flags = {}, int mode = 2);

Q_SIGNALS:
    /// A slider was moved. The radio buttons emit nothing here: read them when the choice is
    /// applied, or connect to them.
    void renderingSettingsChanged();

    /// The user asked for the defaults. The controls are unchanged; the dialog sets them.
    void useDefaults();

public Q_SLOTS:
    /// Emits renderingSettingsChanged().
    virtual void onWidgetChanged();

protected Q_SLOTS:
    /// Emits useDefaults().
    void onDefaultsClicked();

    /// Sets all texts but that of the defaults button.
    virtual void languageChange();

private:
    void hideTwoSlidersLayout(bool hide) const;

public:
    // The controls and their layouts, owned by the widget.

    /// Always null: the radio buttons exclude each other as siblings.
    QButtonGroup* m_pButtonGroup = nullptr;
    /// Level of detail of meshes.
    QSlider* m_pMeshesSlider = nullptr;
    /// Level of detail of geometry.
    QSlider* m_pGeometrySlider = nullptr;
    /// Displacement of faces.
    QSlider* m_pFaceDisplacementSlider = nullptr;
    /// All of the widget.
    QGridLayout* m_pMainGrid = nullptr;
    /// The two radio buttons.
    QVBoxLayout* m_pRadioLayout = nullptr;
    /// Below the sliders; owned by its layout.
    QSpacerItem* m_pSpacer = nullptr;
    /// Inside the box of the face displacement.
    QGridLayout* m_pGroupGrid = nullptr;
    /// The sliders of the levels of detail.
    QGridLayout* m_pTwoSlidersGrid = nullptr;
    /// Chooses rendering by the graphics hardware.
    QRadioButton* m_pHardwareRadioButton = nullptr;
    /// Chooses rendering by software.
    QRadioButton* m_pSoftwareRadioButton = nullptr;
    /// Frame of the face displacement.
    QGroupBox* m_pFaceDisplacementBox = nullptr;
    /// Explains the face displacement.
    QLabel* m_pFaceDisplacementText = nullptr;
    /// Of the slider of geometry.
    QLabel* m_pGeometryLabel = nullptr;
    /// Of the slider of meshes.
    QLabel* m_pMeshesLabel = nullptr;
};
