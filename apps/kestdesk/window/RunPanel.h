// SPDX-License-Identifier: MIT
#pragma once

#include <common_RunWrapper.h>

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
struct Component;

/// The controls for a new run: the model, the component, and the "Run/launch" group.
class RunPanel : public QWidget
{
    Q_OBJECT

public:
    explicit RunPanel(QWidget* parent);

    /// The model's path with native separators; empty if none is chosen.
    QString model() const;
    void setModel(const QString& path);

    const Component& component() const;

    /// Ignores an unknown name.
    void setComponent(const QString& name);

    /// All ticked options, including those that the component does not support.
    common_RunWrapper::RunOptions ticked() const;
    void setTicked(common_RunWrapper::RunOptions options);

    void focusRunButton();

    /// Enables the Stop button.
    void setStopEnabled(bool enabled);

Q_SIGNALS:
    void openRequested();
    void runRequested();
    void stopRequested();

    /// The model or the component has changed.
    void targetChanged();

    /// The user has ticked or cleared a box.
    void tickedChanged();

private:
    QWidget* makeModelRow();
    QWidget* makeComponentRow();
    QWidget* makeLaunchGroup();
    QWidget* makeButtonRow();
    void onTargetChanged();
    void updateControls();

    QLineEdit* m_model = nullptr;
    QComboBox* m_component = nullptr;
    QVector<QCheckBox*> m_boxes;
    QPushButton* m_run = nullptr;
    QPushButton* m_stop = nullptr;
};
