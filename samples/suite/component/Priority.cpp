#include "Priority.h"

#include <sys/resource.h>

#include <thread>

namespace suite {

namespace {

// What the system calls nice values; the normal priority leaves the process as it is.
constexpr int niceValues[] = {19, 10, 0, -5, -10};

bool setNiceValue(int level)
{
    return ::setpriority(PRIO_PROCESS, 0, niceValues[level]) == 0;
}

} // namespace

// On Linux the nice value belongs to the thread, so a thread can try for the process.
bool Priority::isAllowed() const
{
    if (m_level <= normalLevel) {
        return true;
    }
    bool result = false;
    std::thread([&result, this] { result = setNiceValue(m_level); }).join();
    return result;
}

void Priority::apply() const
{
    if (m_level != normalLevel) {
        setNiceValue(m_level);
    }
}

} // namespace suite
