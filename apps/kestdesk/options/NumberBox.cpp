#include "NumberBox.h"

#include <QWheelEvent>

#include <limits>

NumberBox::NumberBox(int smallest, QWidget* parent) : QSpinBox(parent), m_smallest(smallest)
{
    setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    setFocusPolicy(Qt::StrongFocus);
}

void NumberBox::stepBy(int steps)
{
    QSpinBox::stepBy(steps);
    if (value() < m_smallest) {
        setValue(m_smallest);
    }
}

QAbstractSpinBox::StepEnabled NumberBox::stepEnabled() const
{
    const StepEnabled enabled = QSpinBox::stepEnabled();
    return value() > m_smallest ? enabled : enabled & ~StepEnabled(StepDownEnabled);
}

void NumberBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus()) {
        QSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}
