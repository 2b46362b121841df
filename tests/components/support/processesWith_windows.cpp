// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <ProcessTable.h>

#include <winternl.h>

#include <vector>

namespace {

// Of the structures that the loader of a process makes, which winternl.h does not have in full.
constexpr std::size_t parametersInProcess = 0x20;
constexpr std::size_t environmentInParameters = 0x80;
constexpr std::size_t environmentSizeInParameters = 0x3F0;

template <typename Value>
Value valueAt(HANDLE process, const char* address)
{
    Value value = {};
    ReadProcessMemory(process, address, &value, sizeof value, nullptr);
    return value;
}

// Each variable ends with a null. Empty for a process that has ended or belongs to the system.
QString environmentOf(HANDLE process)
{
    PROCESS_BASIC_INFORMATION information = {};
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &information,
                                  sizeof information, nullptr) != 0) {
        return QString();
    }
    const char* const block = reinterpret_cast<const char*>(information.PebBaseAddress);
    const char* const parameters = valueAt<const char*>(process, block + parametersInProcess);
    const char* const place = valueAt<const char*>(process, parameters + environmentInParameters);
    const auto bytes = valueAt<SIZE_T>(process, parameters + environmentSizeInParameters);
    std::vector<wchar_t> environment(bytes / sizeof(wchar_t));
    if (!ReadProcessMemory(process, place, environment.data(), bytes, nullptr)) {
        return QString();
    }
    return QString::fromWCharArray(environment.data(), static_cast<int>(environment.size()));
}

} // namespace

QStringList processesWith(const QByteArray& assignment)
{
    const QString wanted = QChar::Null + QString::fromUtf8(assignment) + QChar::Null;
    QStringList result;
    const auto all = ProcessTable::entries();
    for (const PROCESSENTRY32W& entry : all) {
        const HANDLE process =
            OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, entry.th32ProcessID);
        if (process && (QChar::Null + environmentOf(process)).contains(wanted)) {
            result.append(QString::number(entry.th32ProcessID));
        }
        CloseHandle(process);
    }
    return result;
}
