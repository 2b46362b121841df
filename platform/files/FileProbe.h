// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <memory>
#include <thread>

/// Finds out whether files can be read, without waiting long for files that do not answer, for
/// example on a network that is down.
class FileProbe
{
public:
    enum class Answer { Readable, Unreadable, None };

    /// The time limit applies to the sum of all waits for files that do not answer.
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
