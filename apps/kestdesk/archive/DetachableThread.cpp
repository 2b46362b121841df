// SPDX-License-Identifier: MIT
#include "DetachableThread.h"

#include <condition_variable>
#include <mutex>
#include <utility>

// Shared with the thread, which keeps it alive if it is detached.
struct DetachableThread::State
{
    std::mutex mutex;
    std::condition_variable changed;
    bool isDone = false;
};

DetachableThread::DetachableThread(std::chrono::milliseconds limit)
    : m_limit(limit), m_state(std::make_shared<State>())
{}

DetachableThread::~DetachableThread()
{
    end();
}

void DetachableThread::start(std::function<void()> work)
{
    m_thread = std::thread([state = m_state, work = std::move(work)]() mutable {
        work();
        work = nullptr;
        const std::lock_guard<std::mutex> lock(state->mutex);
        state->isDone = true;
        state->changed.notify_all();
    });
}

void DetachableThread::end()
{
    if (!m_thread.joinable()) {
        return;
    }
    std::unique_lock<std::mutex> lock(m_state->mutex);
    const bool isDone =
        m_state->changed.wait_for(lock, m_limit, [this] { return m_state->isDone; });
    lock.unlock();
    if (isDone) {
        m_thread.join();
    } else {
        m_thread.detach();
    }
}
