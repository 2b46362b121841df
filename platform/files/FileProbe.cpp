// SPDX-License-Identifier: MIT
#include "FileProbe.h"

#include <QFileInfo>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <optional>

namespace {

// What a file of this machine needs at most, for those behind one that did not answer.
constexpr std::chrono::milliseconds shortestWait(50);

} // namespace

/// What the asking thread and the answering one share. Where the latter never comes back, it alone
/// keeps it.
struct FileProbe::Exchange
{
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<QString> question;
    std::optional<bool> answer;
    bool isOver = false;
};

FileProbe::FileProbe(std::chrono::milliseconds patience) : m_patience(patience)
{}

FileProbe::~FileProbe()
{
    if (!m_exchange) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(m_exchange->mutex);
        m_exchange->isOver = true;
    }
    m_exchange->changed.notify_all();
    m_thread.join();
}

FileProbe::Answer FileProbe::ask(const QString& path)
{
    if (!m_exchange) {
        start();
    }
    const auto begin = std::chrono::steady_clock::now();
    std::unique_lock<std::mutex> lock(m_exchange->mutex);
    m_exchange->answer.reset();
    m_exchange->question = path;
    m_exchange->changed.notify_all();
    if (m_exchange->changed.wait_for(lock, std::max(m_patience, shortestWait),
                                     [this] { return m_exchange->answer.has_value(); })) {
        return *m_exchange->answer ? Answer::Readable : Answer::Unreadable;
    }
    m_exchange->isOver = true;
    lock.unlock();
    m_thread.detach();
    m_exchange.reset();
    m_patience -= std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - begin);
    return Answer::None;
}

void FileProbe::answerQuestions(const std::shared_ptr<Exchange>& exchange)
{
    std::unique_lock<std::mutex> lock(exchange->mutex);
    while (true) {
        exchange->changed.wait(
            lock, [&exchange] { return exchange->isOver || exchange->question.has_value(); });
        if (exchange->isOver) {
            return;
        }
        const QString path = *exchange->question;
        exchange->question.reset();
        lock.unlock();
        const bool isReadable = QFileInfo(path).isReadable();
        lock.lock();
        exchange->answer = isReadable;
        exchange->changed.notify_all();
    }
}

void FileProbe::start()
{
    m_exchange = std::make_shared<Exchange>();
    m_thread = std::thread(answerQuestions, m_exchange);
}
