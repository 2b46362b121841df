#pragma once

#include <QSpinBox>

/// A box for any integer, so that a stored one that is out of range is shown as it is. Its arrows
/// and keys stop at the smallest and at the largest that make sense.
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

    /// The wheel scrolls the page, and changes the number only where the user is.
    void wheelEvent(QWheelEvent* event) override;

private:
    int m_smallest;
    int m_largest;
};
