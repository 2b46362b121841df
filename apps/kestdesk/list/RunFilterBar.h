#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QToolButton;
class RunFilter;

/// What the user wants to see in the list of runs: words, a state, grouped by model or not.
class RunFilterBar : public QWidget
{
    Q_OBJECT

public:
    /// The filter must outlive the bar.
    RunFilterBar(RunFilter* filter, QWidget* parent);

    void focusText();

    /// The one that the Tab key leads to last.
    QWidget* lastControl() const;

    /// Takes back every choice by which runs may be left out.
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
