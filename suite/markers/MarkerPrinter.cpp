// SPDX-License-Identifier: MIT
#include "MarkerPrinter.h"

#include "MarkerLine.h"
#include "PlainText.h"

#include <TerminalStream.h>

#include <QDir>

namespace suite {

namespace {

struct MarkerRow
{
    Marker marker;
    const char* text;
};

// clang-format off
constexpr MarkerRow markerTable[] = {
    {Marker::LineFeed,        "-*-linefeed-*-"},
    {Marker::Percentage,      "-*-percentage-*-"},
    {Marker::TotalPercentage, "-*-total-percentage-*-"},
    {Marker::Error,           "-*-error-*-"},
    {Marker::Warning,         "-*-warning-*-"},
    {Marker::Notice,          "-*-notice-*-"},
    {Marker::File,            "-*-file-*-"},
    {Marker::Variable,        "-*-variable-*-"},
};
// clang-format on

} // namespace

QString markerText(Marker marker)
{
    for (const MarkerRow& row : markerTable) {
        if (row.marker == marker) {
            return QLatin1String(row.text);
        }
    }
    return {};
}

std::optional<Marker> markerOf(const QString& line)
{
    for (const MarkerRow& row : markerTable) {
        if (line.startsWith(QLatin1String(row.text))) {
            return row.marker;
        }
    }
    return std::nullopt;
}

MarkerPrinter::MarkerPrinter(std::FILE* stream) : m_stream(stream), m_isTerminal(isTerminal(stream))
{}

void MarkerPrinter::print(Marker marker, const QString& body)
{
    const bool isName = marker == Marker::File && !m_isTerminal;
    writeLine(markerText(marker) + (isName ? carriedName(body) : plainText(body)));
}

void MarkerPrinter::printFiles(const QStringList& paths)
{
    for (const QString& path : paths) {
        print(Marker::File, QDir::toNativeSeparators(path));
    }
}

void MarkerPrinter::printText(const QString& text)
{
    writeLine(plainText(text));
}

void MarkerPrinter::printAgain(const MarkerLine& line)
{
    if (line.marker) {
        print(*line.marker, line.body);
    } else {
        printText(line.body);
    }
}

void MarkerPrinter::printPercentage(Marker marker, int percentage)
{
    print(marker, QStringLiteral("%1%").arg(percentage));
}

void MarkerPrinter::printLineFeed()
{
    print(Marker::LineFeed, QString());
}

bool MarkerPrinter::isReaderGone()
{
    m_failed = m_failed || hasLostReader(m_stream);
    return m_failed;
}

void MarkerPrinter::writeLine(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, m_stream) != size || std::fflush(m_stream) != 0) {
        m_failed = true;
    }
}

} // namespace suite
