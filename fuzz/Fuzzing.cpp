// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include <QtGlobal>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// Warnings about bad input are what the code is asked for; a fatal one is a finding.
void keepQuiet(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    }
}

} // namespace

unsigned char FuzzedInput::byte()
{
    return isAtEnd() ? 0 : static_cast<unsigned char>(m_bytes.at(m_taken++));
}

QByteArray FuzzedInput::line()
{
    const int found = m_bytes.indexOf('\n', m_taken);
    const int end = found < 0 ? m_bytes.size() : found;
    QByteArray result = m_bytes.mid(m_taken, end - m_taken);
    m_taken = end + 1;
    return result;
}

QByteArray FuzzedInput::rest()
{
    QByteArray result = m_bytes.mid(m_taken);
    m_taken = m_bytes.size();
    return result;
}

QString FuzzedInput::text()
{
    if (!flag()) {
        return decoded(rest());
    }
    const QByteArray bytes = rest();
    QString result(bytes.size() / 2, QLatin1Char(' '));
    std::memcpy(result.data(), bytes.constData(), static_cast<std::size_t>(result.size()) * 2);
    return result;
}

QString FuzzedInput::decoded(const QByteArray& utf8)
{
    return QString::fromUtf8(utf8.constData(), utf8.size());
}

void require(bool condition, const char* rule)
{
    if (!condition) {
        std::fprintf(stderr, "This does not hold: %s\n", rule);
        std::abort();
    }
}

// What is kept to the end of the process outside of this project.
extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libfontconfig\nleak:libqoffscreen";
}

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_HASH_SEED", "0"); // the same input takes the same way
    qInstallMessageHandler(keepQuiet);
    fuzz(FuzzedInput(QByteArray())); // what is made once counts for no input
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // A copy of its own, so that reading past its end is noticed.
    fuzz(FuzzedInput(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size))));
    return 0;
}
