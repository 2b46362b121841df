// SPDX-License-Identifier: MIT
#include <common_RenderingSettingsWidget.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

namespace {

using Widget = common_RenderingSettingsWidget;

// The one mode that shows a single slider.
constexpr int singleSliderMode = 1;

constexpr int highestDisplacement = 32;
constexpr int initialDisplacement = 2;

struct SliderRow
{
    QSlider* Widget::*slider;
    const char* objectName;
};

constexpr SliderRow sliders[] = {
    {&Widget::m_pMeshesSlider, "m_pMeshesSlider"},
    {&Widget::m_pGeometrySlider, "m_pGeometrySlider"},
    {&Widget::m_pFaceDisplacementSlider, "faceDisplacementSlider"},
};

struct LabelRow
{
    QLabel* Widget::*label;
    const char* objectName;
};

constexpr LabelRow labels[] = {
    {&Widget::m_pFaceDisplacementText, "faceDisplacementTextLabel"},
    {&Widget::m_pGeometryLabel, "m_pGeometryLabel"},
    {&Widget::m_pMeshesLabel, "m_pMeshesLabel"},
};

QSlider* makeSlider(QWidget* parent)
{
    auto* const slider = new QSlider(Qt::Horizontal, parent);
    slider->setRange(0, highestDisplacement);
    slider->setSingleStep(1);
    slider->setValue(initialDisplacement);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setTickInterval(1);
    return slider;
}

QRadioButton* makeRadioButton(QWidget* parent)
{
    auto* const button = new QRadioButton(parent);
    button->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    return button;
}

void addRadioButtons(Widget& widget)
{
    widget.m_pHardwareRadioButton = makeRadioButton(&widget);
    widget.m_pHardwareRadioButton->setObjectName(QStringLiteral("hardwareRadioButton"));
    widget.m_pHardwareRadioButton->setChecked(true);
    widget.m_pSoftwareRadioButton = makeRadioButton(&widget);
    widget.m_pSpacer = new QSpacerItem(21, 10, QSizePolicy::Minimum, QSizePolicy::MinimumExpanding);

    widget.m_pRadioLayout = new QVBoxLayout;
    widget.m_pRadioLayout->addWidget(widget.m_pHardwareRadioButton);
    widget.m_pRadioLayout->addWidget(widget.m_pSoftwareRadioButton);
    widget.m_pRadioLayout->addItem(widget.m_pSpacer);
    widget.m_pMainGrid->addLayout(widget.m_pRadioLayout, 0, 0, Qt::AlignTop);
}

void addBox(Widget& widget)
{
    auto* const box = new QGroupBox(&widget);
    box->setObjectName(QStringLiteral("faceDisplacementGroupBox"));
    box->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    widget.m_pFaceDisplacementBox = box;
    widget.m_pMainGrid->addWidget(box, 0, 1);

    for (const LabelRow& row : labels) {
        widget.*row.label = new QLabel(box);
        (widget.*row.label)->setObjectName(QLatin1String(row.objectName));
    }
    for (const SliderRow& row : sliders) {
        widget.*row.slider = makeSlider(box);
        (widget.*row.slider)->setObjectName(QLatin1String(row.objectName));
    }
    QLabel* const text = widget.m_pFaceDisplacementText;
    text->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    text->setWordWrap(true);
}

void fillBox(Widget& widget)
{
    widget.m_pTwoSlidersGrid = new QGridLayout;
    widget.m_pTwoSlidersGrid->setSpacing(6);
    widget.m_pTwoSlidersGrid->addWidget(widget.m_pGeometryLabel, 0, 0);
    widget.m_pTwoSlidersGrid->addWidget(widget.m_pGeometrySlider, 0, 1);
    widget.m_pTwoSlidersGrid->addWidget(widget.m_pMeshesLabel, 1, 2, 1, 2);
    widget.m_pTwoSlidersGrid->addWidget(widget.m_pMeshesSlider, 2, 1);

    widget.m_pGroupGrid = new QGridLayout(widget.m_pFaceDisplacementBox);
    widget.m_pGroupGrid->setAlignment(Qt::AlignTop);
    widget.m_pGroupGrid->addWidget(widget.m_pFaceDisplacementText, 0, 0);
    widget.m_pGroupGrid->addWidget(widget.m_pFaceDisplacementSlider, 1, 0);
    widget.m_pGroupGrid->addLayout(widget.m_pTwoSlidersGrid, 2, 0);
}

// Below the grid, in the widget's main layout.
QPushButton* addDefaultsButton(QWidget& widget, QVBoxLayout& layout)
{
    auto* const button = new QPushButton(QStringLiteral("&Reset to defaults"), &widget);
    button->setObjectName(QStringLiteral("DefaultsButton"));
    auto* const row = new QHBoxLayout;
    row->setSpacing(3);
    row->addStretch();
    row->addWidget(button);
    layout.addStretch(1);
    layout.addLayout(row);
    layout.addSpacing(20);
    return button;
}

void setTabOrderAndFocus(const Widget& widget)
{
    QWidget::setTabOrder(widget.m_pHardwareRadioButton, widget.m_pGeometrySlider);
    QWidget::setTabOrder(widget.m_pGeometrySlider, widget.m_pMeshesSlider);
    QWidget::setTabOrder(widget.m_pMeshesSlider, widget.m_pFaceDisplacementSlider);
    widget.m_pHardwareRadioButton->setFocus();
}

} // namespace

common_RenderingSettingsWidget::common_RenderingSettingsWidget(QWidget* parent, const char* name,
                                                               Qt::WindowFlags flags, int mode)
    : QWidget(parent, flags)
{
    setObjectName(QLatin1String(name ? name : "common_Rendering_Settings_Widget"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    m_pMainGrid = new QGridLayout;
    layout->addLayout(m_pMainGrid);
    addRadioButtons(*this);
    addBox(*this);
    fillBox(*this);
    hideTwoSlidersLayout(mode == singleSliderMode);
    m_pFaceDisplacementSlider->setHidden(mode != singleSliderMode);
    const QPushButton* const defaultsButton = addDefaultsButton(*this, *layout);
    connect(defaultsButton, &QPushButton::clicked, this,
            &common_RenderingSettingsWidget::onDefaultsClicked);

    common_RenderingSettingsWidget::languageChange();
    resize(QSize(344, 227).expandedTo(minimumSizeHint()));
    setWindowState(Qt::WindowNoState);
    for (const SliderRow& row : sliders) {
        connect(this->*row.slider, &QSlider::valueChanged, this,
                &common_RenderingSettingsWidget::onWidgetChanged);
    }
    setTabOrderAndFocus(*this);
}

void common_RenderingSettingsWidget::onWidgetChanged()
{
    Q_EMIT renderingSettingsChanged();
}

void common_RenderingSettingsWidget::onDefaultsClicked()
{
    Q_EMIT useDefaults();
}

void common_RenderingSettingsWidget::languageChange()
{
    setWindowTitle(QStringLiteral("Rendering options"));
    m_pHardwareRadioButton->setText(QStringLiteral("Hardware rendering2"));
    m_pSoftwareRadioButton->setText(QStringLiteral("Software rendering"));
    m_pFaceDisplacementBox->setTitle(QStringLiteral("Face displacement"));
    m_pFaceDisplacementText->setText(
        QStringLiteral("The ideal face displacement depends on the graphics card. This value "
                       "should be increased if the edges appear broken and decreased if edges "
                       "which are supposed to be hidden become visible."));
    m_pGeometryLabel->setText(QStringLiteral("Geometry"));
    m_pMeshesLabel->setText(QStringLiteral("Meshes"));
}

void common_RenderingSettingsWidget::hideTwoSlidersLayout(bool hide) const
{
    for (QWidget* const control :
         {static_cast<QWidget*>(m_pGeometrySlider), static_cast<QWidget*>(m_pGeometryLabel),
          static_cast<QWidget*>(m_pMeshesSlider), static_cast<QWidget*>(m_pMeshesLabel)}) {
        control->setHidden(hide);
    }
}
