// SPDX-License-Identifier: MIT
#include "common_EndOfTurn.h"

#include <utility>

common_EndOfTurn::common_EndOfTurn(std::function<void()> deed) : m_deed(std::move(deed))
{}

void common_EndOfTurn::ask()
{
    if (m_isAsked) {
        return;
    }
    m_isAsked = true;
    const auto doIt = [this] {
        m_isAsked = false;
        m_deed();
    };
    QMetaObject::invokeMethod(this, doIt, Qt::QueuedConnection);
}
