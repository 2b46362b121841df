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
    /// The text is another one. QSpinBox itself tells nobody of one that is no number, such as
    /// none.
    void edited();

protected:
    StepEnabled stepEnabled() const override;

    /// The wheel scrolls the page, and changes the number only where the user is.
    void wheelEvent(QWheelEvent* event) override;

private:
    int m_smallest;
    int m_largest;
};
