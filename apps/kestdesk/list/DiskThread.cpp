#include "DiskThread.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 5s; // longest wait of the destructor

} // namespace

// The state that both threads use. The working thread keeps it alive if it is detached.
struct DiskThread::Shared
{
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Job> jobs;
    DiskThread* owner = nullptr; // null after its destruction
    bool isDone = false;

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

    void setDone()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isDone = true;
        changed.notify_all();
    }
};

DiskThread::DiskThread(QObject* parent) : QObject(parent), m_shared(std::make_shared<Shared>())
{
    m_shared->owner = this;
    m_thread = std::thread(&DiskThread::work, m_shared);
}

DiskThread::~DiskThread()
{
    std::unique_lock<std::mutex> lock(m_shared->mutex);
    m_shared->owner = nullptr;
    m_shared->changed.notify_all();
    const bool isDone =
        m_shared->changed.wait_for(lock, patience, [this] { return m_shared->isDone; });
    lock.unlock();
    if (isDone) {
        m_thread.join();
    } else {
        m_thread.detach();
    }
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
    shared->setDone();
}
