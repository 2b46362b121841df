// SPDX-License-Identifier: MIT
#include "Descendants.h"

#include <QVector>

#include <cstddef>
#include <memory>

#include <windows.h>

namespace {

// What QProcess takes for a crash.
constexpr UINT killedCode = 0xF291;

/// The job of this process and its descendants: what is in it ends with this process. Programs that
/// may outlive it are started outside.
class OwnJob
{
public:
    OwnJob() : m_job(CreateJobObjectW(nullptr, nullptr))
    {
        setLimits(0);
        m_isEntered = AssignProcessToJobObject(m_job, GetCurrentProcess()) != 0;
    }
    OwnJob(const OwnJob&) = delete;
    OwnJob& operator=(const OwnJob&) = delete;

    void startOutside(const std::function<void()>& start)
    {
        setLimits(JOB_OBJECT_LIMIT_SILENT_BREAKAWAY_OK);
        start();
        setLimits(0);
    }

    QVector<DWORD> others() const
    {
        constexpr DWORD most = 1000;
        constexpr std::size_t size =
            sizeof(JOBOBJECT_BASIC_PROCESS_ID_LIST) + most * sizeof(ULONG_PTR);
        const auto buffer = std::make_unique<std::byte[]>(size);
        auto* const list = reinterpret_cast<JOBOBJECT_BASIC_PROCESS_ID_LIST*>(buffer.get());
        QVector<DWORD> result;
        if (!m_isEntered || !QueryInformationJobObject(m_job, JobObjectBasicProcessIdList, list,
                                                       static_cast<DWORD>(size), nullptr)) {
            return result;
        }
        for (DWORD i = 0; i < list->NumberOfProcessIdsInList; ++i) {
            const auto process = static_cast<DWORD>(list->ProcessIdList[i]);
            if (process != GetCurrentProcessId()) {
                result.append(process);
            }
        }
        return result;
    }

private:
    void setLimits(DWORD more)
    {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | more;
        SetInformationJobObject(m_job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    }

    HANDLE m_job; ///< closed by the system at the end of this process, whatever ends it
    bool m_isEntered = false;
};

OwnJob& ownJob()
{
    static OwnJob job;
    return job;
}

} // namespace

// Processes that are started before do not count.
void Descendants::adoptOrphans()
{
    ownJob();
}

void Descendants::bindToThisProgram()
{
    ownJob();
}

void Descendants::startDetached(const std::function<void()>& start)
{
    ownJob().startOutside(start);
}

bool Descendants::isAnySeen()
{
    return !ownJob().others().isEmpty();
}

void Descendants::killAll()
{
    const QVector<DWORD> processes = ownJob().others();
    for (const DWORD process : processes) {
        const HANDLE handle = OpenProcess(PROCESS_TERMINATE, FALSE, process);
        if (handle) {
            TerminateProcess(handle, killedCode);
            CloseHandle(handle);
        }
    }
}

QSet<qint64> Descendants::endedChildren()
{
    return {};
}
