// SPDX-License-Identifier: MIT
#include "StreamReport.h"

#include "CheckedPiece.h"

StreamReport::StreamReport(std::FILE* stream, ReportStyle style) : m_stream(stream), m_style(style)
{}

bool StreamReport::isLeftOut(const CheckedPiece& piece) const
{
    return m_style == ReportStyle::RemarksOnly && piece.remarks.isEmpty();
}

void StreamReport::write(const QByteArray& bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), m_stream);
}

void StreamReport::flush()
{
    std::fflush(m_stream);
}
