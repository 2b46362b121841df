// SPDX-License-Identifier: MIT
#include "LocalMachines.h"

#include <HostName.h>

#include <QCoreApplication>
#include <QStringList>
#include <QThread>

#include <algorithm>

using suite::MachinesFile;

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LocalMachines)
};

constexpr int shownHosts = 5;
const QString ownName = QStringLiteral("localhost");
const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");

int processorCount()
{
    return std::clamp(QThread::idealThreadCount(), 1, MachinesFile::mostProcesses);
}

QByteArray asComment(const QByteArray& line)
{
    const QByteArray text = line.trimmed();
    return text.isEmpty() || text.startsWith('#') ? line : "# " + line;
}

} // namespace

LocalMachines::LocalMachines() : m_file(MachinesFile::parse(m_store.content()))
{}

QString LocalMachines::line()
{
    return QStringLiteral("%1:%2").arg(ownName).arg(processorCount());
}

LocalMachines::State LocalMachines::state() const
{
    if (!error().isEmpty()) {
        return State::NotChanged;
    }
    if (m_file.namesNoHost()) {
        return State::Free;
    }
    const QVector<MachinesFile::Entry>& entries = m_file.entries();
    const bool isDone = m_file.isValid() && entries.size() == 1 && entries[0].host == ownName &&
                        entries[0].count == processorCount();
    return isDone ? State::Done : State::Taken;
}

QString LocalMachines::hosts() const
{
    QStringList shown;
    const QVector<MachinesFile::Entry> first = m_file.entries().mid(0, shownHosts);
    for (const MachinesFile::Entry& entry : first) {
        shown.append(QStringLiteral("%1:%2")
                         .arg(suite::HostName::withBrackets(entry.host))
                         .arg(entry.count));
    }
    const int more = m_file.entryCount() - shown.size();
    const QString named = shown.join(QStringLiteral(", "));
    return more > 0 ? Texts::tr("%1 and %2 more").arg(named, QString::number(more)) : named;
}

QString LocalMachines::error() const
{
    if (!m_store.readError().isEmpty()) {
        return Texts::tr("%1 cannot be read: %2").arg(fileName(), m_store.readError());
    }
    return m_file.isText() ? QString()
                           : Texts::tr("%1 is not a text file and is left as it is").arg(origin());
}

QString LocalMachines::save()
{
    if (!error().isEmpty()) {
        return error();
    }
    if (m_store.hasChanged()) {
        return Texts::tr("%1 was changed meanwhile and is left as it is").arg(fileName());
    }
    const QString failure = m_store.save(content());
    return failure.isEmpty() ? QString()
                             : Texts::tr("%1 cannot be written: %2").arg(fileName(), failure);
}

QByteArray LocalMachines::content() const
{
    QByteArray before = m_store.content();
    if (before.startsWith(byteOrderMark)) {
        before.remove(0, byteOrderMark.size());
    }
    if (before.endsWith('\n')) {
        before.chop(1);
    }
    QByteArray result;
    const QList<QByteArray> lines = before.isEmpty() ? QList<QByteArray>() : before.split('\n');
    for (const QByteArray& each : lines) {
        result += asComment(each) + '\n';
    }
    return result + line().toLatin1() + '\n';
}
