// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QToolButton;
class RunFilter;

/// The controls of the filter: words, a state, grouping by model.
class RunFilterBar : public QWidget
{
    Q_OBJECT

public:
    /// The filter must outlive the bar.
    RunFilterBar(RunFilter* filter, QWidget* parent);

    void focusText();

    /// The last control in the tab order.
    QWidget* lastControl() const;

    /// Resets all controls that hide runs.
    void clear();

private:
    void makeText();
    void makeState();
    void makeGrouping();
    void onStateChosen();

    RunFilter* m_filter;
    QLineEdit* m_text = nullptr;
    QComboBox* m_state = nullptr;
    QToolButton* m_grouping = nullptr;
};
