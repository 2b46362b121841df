// SPDX-License-Identifier: MIT
#pragma once

#include <QSpinBox>

/// A spin box that shows any stored integer, even one that is out of range. Its arrows and keys
/// stop at the limits of the range.
class NumberBox : public QSpinBox
{
    Q_OBJECT

public:
    NumberBox(int smallest, int largest, QWidget* parent);

    void stepBy(int steps) override;

Q_SIGNALS:
    /// The text has changed. QSpinBox itself emits no signal for a text that is not a number, such
    /// as an empty one.
    void edited();

protected:
    StepEnabled stepEnabled() const override;

    /// The wheel scrolls the page; it changes the number only if the box has the focus.
    void wheelEvent(QWheelEvent* event) override;

private:
    int m_smallest;
    int m_largest;
};
