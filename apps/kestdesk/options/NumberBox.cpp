// SPDX-License-Identifier: MIT
#include "NumberBox.h"

#include <QLineEdit>
#include <QWheelEvent>

#include <limits>

NumberBox::NumberBox(int smallest, int largest, QWidget* parent)
    : QSpinBox(parent), m_smallest(smallest), m_largest(largest)
{
    setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSpinBox::textChanged, this, &NumberBox::edited);
    connect(lineEdit(), &QLineEdit::textChanged, this, &NumberBox::edited);
}

void NumberBox::stepBy(int steps)
{
    QSpinBox::stepBy(steps);
    setValue(qBound(m_smallest, value(), m_largest));
}

QAbstractSpinBox::StepEnabled NumberBox::stepEnabled() const
{
    StepEnabled enabled = QSpinBox::stepEnabled();
    enabled.setFlag(StepDownEnabled, enabled.testFlag(StepDownEnabled) && value() > m_smallest);
    enabled.setFlag(StepUpEnabled, enabled.testFlag(StepUpEnabled) && value() < m_largest);
    return enabled;
}

void NumberBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus()) {
        QSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}
