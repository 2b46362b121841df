#include "Descendants.h"

#include <QMultiHash>
#include <QVector>

#include <windows.h>

#include <tlhelp32.h>

namespace {

QVector<DWORD> descendants()
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) {
        return {};
    }
    QMultiHash<DWORD, DWORD> children; // by parent
    PROCESSENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32First(snapshot, &entry); more;
         more = Process32Next(snapshot, &entry)) {
        children.insert(entry.th32ParentProcessID, entry.th32ProcessID);
    }
    CloseHandle(snapshot);
    QVector<DWORD> result = QVector<DWORD>::fromList(children.values(GetCurrentProcessId()));
    for (int next = 0; next < result.size(); ++next) {
        result += QVector<DWORD>::fromList(children.values(result[next]));
    }
    return result;
}

} // namespace

// Windows has no such thing.
void Descendants::adoptOrphans()
{}

bool Descendants::areAlive()
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
