// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// What every fuzzer consists of: one source defines fuzz(), which Fuzzing.cpp calls for each
/// input.

/// One input, taken from its front. Past its end there are zeros and empty texts.
class FuzzedInput
{
public:
    explicit FuzzedInput(const QByteArray& bytes) : m_bytes(bytes) {}

    bool isAtEnd() const { return m_taken >= m_bytes.size(); }

    unsigned char byte();

    /// The letters of a corpus file are as good as any byte: odd codes are true.
    bool flag() { return byte() % 2 == 1; }

    /// All bytes up to the next line feed, without it.
    QByteArray line();

    QByteArray rest();

    /// The rest as a text: after an odd byte any sequence of UTF-16 units, else UTF-8.
    QString text();

    /// UTF-8 to the last byte: QString::fromUtf8() of a byte array ends at the first zero.
    static QString decoded(const QByteArray& utf8);

private:
    QByteArray m_bytes;
    int m_taken = 0;
};

/// Tries one input. Throws nothing, and leaves nothing behind that another input could meet.
void fuzz(FuzzedInput input);

/// Ends the process, and says why, unless the condition holds: the fuzzer keeps the input then.
void require(bool condition, const char* rule);

/// Makes the application object that the code needs, QCoreApplication or QApplication, once.
template <typename Application>
void needApplication()
{
    static char name[] = "fuzzer";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    static const Application application(count, arguments);
}
