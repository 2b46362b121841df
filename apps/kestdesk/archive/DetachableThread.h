// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

/// A thread that waits for the disk. It is joined if it ends soon, and detached otherwise: a disk
/// that does not answer must not prevent a program from ending.
class DetachableThread
{
public:
    /// The limit is the longest wait of end().
    explicit DetachableThread(std::chrono::milliseconds limit = std::chrono::seconds(5));

    /// Calls end().
    ~DetachableThread();

    DetachableThread(const DetachableThread&) = delete;
    DetachableThread& operator=(const DetachableThread&) = delete;

    /// Calls a function in the thread. To be called once. The function must keep alive everything
    /// that it uses, because it may outlive this object.
    void start(std::function<void()> work);

    /// Blocks until the function has returned or the limit is reached. Does nothing before start()
    /// and after an earlier call. The function must have been asked to return before.
    void end();

private:
    struct State;

    std::chrono::milliseconds m_limit;
    std::shared_ptr<State> m_state;
    std::thread m_thread;
};
