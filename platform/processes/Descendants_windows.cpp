#include "Descendants.h"

#include <QMultiHash>
#include <QSet>
#include <QVector>

#include <windows.h>

#include <tlhelp32.h>

namespace {

using Children = QMultiHash<DWORD, DWORD>; // by parent

Children allChildren()
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) {
        return {};
    }
    Children children;
    PROCESSENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32First(snapshot, &entry); more;
         more = Process32Next(snapshot, &entry)) {
        children.insert(entry.th32ParentProcessID, entry.th32ProcessID);
    }
    CloseHandle(snapshot);
    return children;
}

// By number; they keep their parent's number, too.
QSet<DWORD>& detachedProcesses()
{
    static QSet<DWORD> processes;
    return processes;
}

QVector<DWORD> descendants()
{
    const Children children = allChildren();
    QVector<DWORD> result;
    for (const DWORD child : children.values(GetCurrentProcessId())) {
        if (!detachedProcesses().contains(child)) {
            result.append(child);
        }
    }
    for (int next = 0; next < result.size(); ++next) {
        result += QVector<DWORD>::fromList(children.values(result[next]));
    }
    return result;
}

} // namespace

// Windows has no such thing.
void Descendants::adoptOrphans()
{}

void Descendants::startDetached(const std::function<void()>& start)
{
    const QList<DWORD> before = allChildren().values(GetCurrentProcessId());
    start();
    const QList<DWORD> after = allChildren().values(GetCurrentProcessId());
    for (const DWORD child : after) {
        if (!before.contains(child)) {
            detachedProcesses().insert(child);
        }
    }
}

bool Descendants::isAnySeen()
{
    return !descendants().isEmpty();
}

void Descendants::killAll()
{
    const QVector<DWORD> processes = descendants();
    for (const DWORD process : processes) {
        const HANDLE handle = OpenProcess(PROCESS_TERMINATE, FALSE, process);
        if (handle) {
            TerminateProcess(handle, 1);
            CloseHandle(handle);
        }
    }
}

QSet<qint64> Descendants::endedChildren()
{
    return {};
}
