// SPDX-License-Identifier: MIT
#pragma once

/// While it lives, QString::toLocal8Bit() is what terminals show and other programs of the suite
/// print: UTF-8 on Windows, where the encodings of files and of consoles differ; elsewhere that of
/// the session.
class ConsoleEncoding
{
public:
    ConsoleEncoding();
    ConsoleEncoding(const ConsoleEncoding&) = delete;
    ConsoleEncoding& operator=(const ConsoleEncoding&) = delete;
    ~ConsoleEncoding(); // NOLINT(performance-trivially-destructible): on Unix alone

private:
    /// That of the console, which may outlive this program; 0 without one. Used on Windows alone.
    [[maybe_unused]] unsigned int m_earlier = 0;
};
