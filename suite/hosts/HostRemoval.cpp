// SPDX-License-Identifier: MIT
#include "HostRemoval.h"

#include "MachinesLine.h"

namespace suite {

HostRemoval::HostRemoval(const QByteArray& machinesFile, const QStringList& hosts)
{
    int begin = 0;
    while (begin < machinesFile.size()) {
        const int end = machinesFile.indexOf('\n', begin);
        const int next = end < 0 ? machinesFile.size() : end + 1;
        addLine(machinesFile.mid(begin, next - begin), hosts);
        begin = next;
    }
}

void HostRemoval::addLine(const QByteArray& line, const QStringList& hosts)
{
    const QByteArray text = line.trimmed();
    const MachinesLine parsed =
        MachinesLine::parse({text.constData(), static_cast<size_t>(text.size())});
    const QString host =
        QString::fromLatin1(parsed.host.data(), static_cast<int>(parsed.host.size()));
    if (host.isEmpty()) {
        m_content += line;
    } else if (hosts.contains(host, Qt::CaseInsensitive)) {
        m_content += "# " + line;
        m_lines.append(QString::fromUtf8(text));
    } else {
        m_content += line;
        m_leavesHosts = true;
    }
}

} // namespace suite
