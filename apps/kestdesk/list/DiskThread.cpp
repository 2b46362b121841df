// SPDX-License-Identifier: MIT
#include "DiskThread.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

// The state that both threads use. The working thread keeps it alive if it is detached.
struct DiskThread::Shared
{
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Job> jobs;
    DiskThread* owner = nullptr; // null after its destruction

    // Returns an empty job when the thread has to end.
    Job next()
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return owner == nullptr || !jobs.empty(); });
        if (owner == nullptr) {
            return {};
        }
        Job job = std::move(jobs.front());
        jobs.pop_front();
        return job;
    }

    void answer(const Reply& reply)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (owner != nullptr) {
            QMetaObject::invokeMethod(owner, reply, Qt::QueuedConnection);
        }
    }

    void close()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        owner = nullptr;
        changed.notify_all();
    }
};

DiskThread::DiskThread(QObject* parent) : QObject(parent), m_shared(std::make_shared<Shared>())
{
    m_shared->owner = this;
    m_thread.start([shared = m_shared] { work(shared); });
}

DiskThread::~DiskThread()
{
    m_shared->close();
    m_thread.end();
}

void DiskThread::post(Job job)
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->jobs.push_back(std::move(job));
    m_shared->changed.notify_all();
}

void DiskThread::work(const std::shared_ptr<Shared>& shared)
{
    while (const Job job = shared->next()) {
        job([&shared](const Reply& reply) { shared->answer(reply); });
    }
}
