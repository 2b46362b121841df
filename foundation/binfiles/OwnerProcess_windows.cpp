// SPDX-License-Identifier: MIT
#include "OwnerProcess.h"

#include <QFileInfo>

#include <windows.h>

namespace {

/// An open handle of a process; invalid when there is no process with that id.
class ProcessHandle
{
public:
    explicit ProcessHandle(qint64 process)
        : m_handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE,
                               static_cast<DWORD>(process)))
    {}
    ProcessHandle(const ProcessHandle&) = delete;
    ProcessHandle& operator=(const ProcessHandle&) = delete;
    ~ProcessHandle()
    {
        if (m_handle != nullptr) {
            CloseHandle(m_handle);
        }
    }

    bool isValid() const { return m_handle != nullptr; }
    HANDLE get() const { return m_handle; }

private:
    HANDLE m_handle;
};

} // namespace

QString OwnerProcess::program(qint64 process)
{
    const ProcessHandle handle(process);
    wchar_t path[MAX_PATH] = L"";
    DWORD length = MAX_PATH;
    if (!handle.isValid() || !QueryFullProcessImageNameW(handle.get(), 0, path, &length)) {
        return QString();
    }
    return QFileInfo(QString::fromWCharArray(path, static_cast<int>(length))).fileName();
}

bool OwnerProcess::hasEnded(qint64 process, const QString& program)
{
    const ProcessHandle handle(process);
    if (!handle.isValid()) {
        return GetLastError() == ERROR_INVALID_PARAMETER;
    }
    if (WaitForSingleObject(handle.get(), 0) == WAIT_OBJECT_0) {
        return true;
    }
    const QString running = OwnerProcess::program(process);
    return !running.isEmpty() && !program.isEmpty() && running != program;
}

bool OwnerProcess::isEnding(qint64 /*process*/)
{
    return false; // a killed process has ended at once
}
