// SPDX-License-Identifier: MIT
#pragma once

#include <common_RenderingSettingsWidget.h>

#include <QPushButton>
#include <QSlider>

using Widget = common_RenderingSettingsWidget;

inline QPushButton* defaultsButton(const Widget& widget)
{
    return widget.findChild<QPushButton*>(QStringLiteral("DefaultsButton"));
}

inline QVector<QSlider*> slidersOf(const Widget& widget)
{
    return {widget.m_pGeometrySlider, widget.m_pMeshesSlider, widget.m_pFaceDisplacementSlider};
}
