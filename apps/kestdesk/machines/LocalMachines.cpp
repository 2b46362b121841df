#include "LocalMachines.h"

#include <QStringList>
#include <QThread>

#include <algorithm>

namespace {

constexpr int mostProcesses = 4096; // that a machines file may ask for on one host
constexpr int shownHosts = 5;
const QString ownName = QStringLiteral("localhost");
const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");

int processorCount()
{
    return std::clamp(QThread::idealThreadCount(), 1, mostProcesses);
}

bool isText(const QByteArray& content)
{
    return !content.contains('\0') && !content.startsWith("\xff\xfe") &&
           !content.startsWith("\xfe\xff");
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
    const bool isDone = m_file.isRight() && entries.size() == 1 && entries[0].host == ownName &&
                        entries[0].processes == processorCount();
    return isDone ? State::Done : State::Taken;
}

QString LocalMachines::hosts() const
{
    QStringList shown;
    const QVector<MachinesFile::Entry> first = m_file.entries().mid(0, shownHosts);
    for (const MachinesFile::Entry& entry : first) {
        shown.append(QStringLiteral("%1:%2").arg(entry.host).arg(entry.processes));
    }
    const int more = m_file.entries().size() - shown.size();
    return shown.join(QStringLiteral(", ")) +
           (more > 0 ? QStringLiteral(" and %1 more").arg(more) : QString());
}

QString LocalMachines::error() const
{
    if (!m_store.readError().isEmpty()) {
        return QStringLiteral("%1 cannot be read: %2").arg(fileName(), m_store.readError());
    }
    return isText(m_store.content())
               ? QString()
               : QStringLiteral("%1 is not a text file and is left as it is").arg(origin());
}

QString LocalMachines::save()
{
    if (!error().isEmpty()) {
        return error();
    }
    if (m_store.hasChanged()) {
        return QStringLiteral("%1 was changed meanwhile and is left as it is").arg(fileName());
    }
    const QString failure = m_store.save(content());
    return failure.isEmpty() ? QString()
                             : QStringLiteral("%1 cannot be written: %2").arg(fileName(), failure);
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
