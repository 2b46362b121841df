// SPDX-License-Identifier: MIT
#include "common_ProcessRunnerDelivery.h"

common_ProcessRunnerBase::Delivery::Delivery(common_ProcessRunnerBase* runner)
    : m_runner(runner), m_reference(runner->getRefCount() > 0 ? runner : nullptr)
{
    ++m_runner->m_deliveries;
    m_runner->m_deliveryReferences += m_reference ? 1 : 0;
}

// The last reference leaves the runner's numbers as they are: its destructor looks at them.
common_ProcessRunnerBase::Delivery::~Delivery()
{
    const bool isLast = m_reference && m_runner->getRefCount() == 1;
    if (!isLast) {
        --m_runner->m_deliveries;
        m_runner->m_deliveryReferences -= m_reference ? 1 : 0;
    }
}
