// SPDX-License-Identifier: MIT
#pragma once

#include "DetachableThread.h"

#include <QObject>

#include <functional>
#include <memory>

/// A thread for jobs that wait for the disk, so that the user interface thread never does. Runs its
/// jobs one after the other.
class DiskThread : public QObject
{
    Q_OBJECT

public:
    /// A function to be called in the thread that the object lives in, unless the object has been
    /// destroyed by then.
    using Reply = std::function<void()>;

    /// Passes a reply to that thread. A job may call it any number of times.
    using Answer = std::function<void(const Reply& reply)>;
    using Job = std::function<void(const Answer& answer)>;

    explicit DiskThread(QObject* parent = nullptr);

    /// Drops the jobs that have not begun, and waits some seconds for the one that has: a disk that
    /// does not answer must not prevent a program from ending.
    ~DiskThread() override;

    void post(Job job);

private:
    struct Shared;
    static void work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> m_shared;
    DetachableThread m_thread;
};
