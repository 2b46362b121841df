// SPDX-License-Identifier: MIT
#include "RenderingDialog.h"

#include "RenderingSettings.h"

#include <common_RenderingSettingsWidget.h>

#include <QDialogButtonBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

namespace {

constexpr int oneSlider = 1; // the mode of the widget

} // namespace

RenderingDialog::RenderingDialog(SceneView* view, RenderingSettings* settings, QWidget* parent)
    : QDialog(parent)
    , m_view(view)
    , m_settings(settings)
    , m_widget(new common_RenderingSettingsWidget(this, nullptr, {}, oneSlider))
{
    setObjectName(QStringLiteral("renderingDialog"));
    setWindowTitle(tr("Rendering"));
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_widget);
    layout->addWidget(buttons);
    showSettings(*m_settings);
    connect(m_widget, &common_RenderingSettingsWidget::renderingSettingsChanged, this,
            [this] { m_view->setFaceDisplacement(m_widget->m_pFaceDisplacementSlider->value()); });
    connect(m_widget, &common_RenderingSettingsWidget::useDefaults, this,
            &RenderingDialog::showDefaults);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &RenderingDialog::apply);
}

void RenderingDialog::done(int result)
{
    if (result == Accepted) {
        apply();
    } else {
        m_view->setFaceDisplacement(m_settings->faceDisplacement);
    }
    QDialog::done(result);
}

void RenderingDialog::showSettings(const RenderingSettings& settings)
{
    const bool isHardware = settings.rendering == Rendering::Hardware;
    (isHardware ? m_widget->m_pHardwareRadioButton : m_widget->m_pSoftwareRadioButton)
        ->setChecked(true);
    m_widget->m_pFaceDisplacementSlider->setValue(settings.faceDisplacement);
}

void RenderingDialog::showDefaults()
{
    RenderingSettings defaults(m_settings->getFileName());
    defaults.restoreDefaults();
    showSettings(defaults);
}

void RenderingDialog::apply()
{
    m_settings->rendering =
        m_widget->m_pHardwareRadioButton->isChecked() ? Rendering::Hardware : Rendering::Software;
    m_settings->faceDisplacement = m_widget->m_pFaceDisplacementSlider->value();
    m_settings->wasAsked = true; // who has chosen here need not be asked any more
    m_settings->isUnproven = false;
    m_settings->writeSettings();
    Q_EMIT applied();
}
