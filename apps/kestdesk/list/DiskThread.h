#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <thread>

/// A thread for what waits for the disk, so that the thread that shows things never does. It works
/// off its jobs one after the other.
class DiskThread : public QObject
{
    Q_OBJECT

public:
    /// Something to be called in the thread that the object lives in, unless the object is gone by
    /// then.
    using Reply = std::function<void()>;

    /// May be called any number of times, by a job.
    using Answer = std::function<void(const Reply& reply)>;
    using Job = std::function<void(const Answer& answer)>;

    explicit DiskThread(QObject* parent = nullptr);

    /// Drops the jobs that have not begun, and waits for the one that has, though not for ever: a
    /// disk that does not answer must not keep a program from ending.
    ~DiskThread() override;

    void post(Job job);

private:
    struct Shared;
    static void work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> m_shared;
    std::thread m_thread;
};
