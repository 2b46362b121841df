#pragma once

#include <QString>

#include <chrono>
#include <memory>
#include <thread>

/// Asks whether files can be read, without waiting for long for one that does not answer, as on a
/// network that is down.
class FileProbe
{
public:
    enum class Answer { Readable, Unreadable, None };

    /// Files that do not answer may take so long altogether; others take the time that they take.
    explicit FileProbe(std::chrono::milliseconds patience = std::chrono::seconds(1));
    ~FileProbe();

    FileProbe(const FileProbe&) = delete;
    FileProbe& operator=(const FileProbe&) = delete;

    Answer ask(const QString& path);

private:
    struct Exchange;

    static void answerQuestions(const std::shared_ptr<Exchange>& exchange);
    void start();

    std::chrono::milliseconds m_patience;
    std::shared_ptr<Exchange> m_exchange; ///< null while no thread answers
    std::thread m_thread;
};
