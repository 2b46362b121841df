// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

namespace suite {

/// A machines file in which the lines of some hosts are comments. Everything else is as it was,
/// byte for byte.
class HostRemoval
{
public:
    /// Upper and lower case of hosts make no difference.
    HostRemoval(const QByteArray& machinesFile, const QStringList& hosts);

    [[nodiscard]] QByteArray content() const { return m_content; }

    /// The lines that are comments now, without the sign of comments.
    [[nodiscard]] QStringList lines() const { return m_lines; }

    /// Whether the file names other hosts.
    [[nodiscard]] bool leavesHosts() const { return m_leavesHosts; }

private:
    void addLine(const QByteArray& line, const QStringList& hosts);

    QByteArray m_content;
    QStringList m_lines;
    bool m_leavesHosts = false;
};

} // namespace suite
