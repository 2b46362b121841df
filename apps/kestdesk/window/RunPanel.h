#pragma once

#include <common_RunWrapper.h>

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
struct Component;

/// What to run and how: the model, the component, and the "Run/launch" group.
class RunPanel : public QWidget
{
    Q_OBJECT

public:
    explicit RunPanel(QWidget* parent);

    /// The model's path in native separators, empty when none is chosen.
    QString model() const;
    void setModel(const QString& path);

    const Component& component() const;

    /// A name that is not known changes nothing.
    void setComponent(const QString& name);

    /// The boxes that are ticked, whether they mean something to the component or not.
    common_RunWrapper::RunOptions ticked() const;
    void setTicked(common_RunWrapper::RunOptions options);

    void focusRunButton();

    /// Whether there is a run to stop.
    void setStopEnabled(bool enabled);

Q_SIGNALS:
    void openRequested();
    void runRequested();
    void stopRequested();

    /// Another model or component is there to run.
    void targetChanged();

    /// The user ticked a box.
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
