// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <common_ProcessRunnerBase.h>

/// Exists during each call of a runner that may notify observers, and keeps a counted runner alive
/// for that time.
///
/// When an observer releases the runner, the runner is destroyed at the end of that call. Its
/// QProcess may be emitting a signal then, so it is deleted by the event loop.
class common_ProcessRunnerBase::Delivery
{
public:
    explicit Delivery(common_ProcessRunnerBase* runner);
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;
    ~Delivery();

private:
    common_ProcessRunnerBase* m_runner;
    common_ActivePtr<common_ProcessRunnerBase> m_reference; ///< null for a runner without a count
};
