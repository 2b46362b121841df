// SPDX-License-Identifier: MIT
#include "ConsoleBreak.h"

#include <QProcess>

#include <algorithm>
#include <iterator>

#include <windows.h>

namespace {

/// Attaches this process, which has no console, to that of another one while it lives. The standard
/// handles stay as they are, though attaching replaces them.
class BorrowedConsole
{
public:
    explicit BorrowedConsole(DWORD process)
    {
        std::transform(std::begin(channels), std::end(channels), std::begin(m_handles),
                       GetStdHandle);
        m_isAttached = AttachConsole(process) != 0;
    }
    BorrowedConsole(const BorrowedConsole&) = delete;
    BorrowedConsole& operator=(const BorrowedConsole&) = delete;
    ~BorrowedConsole()
    {
        if (m_isAttached) {
            FreeConsole();
        }
        for (int i = 0; i < count; ++i) {
            SetStdHandle(channels[i], m_handles[i]);
        }
    }

    bool isAttached() const { return m_isAttached; }

private:
    static constexpr int count = 3;
    static constexpr DWORD channels[count] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE,
                                              STD_ERROR_HANDLE};

    HANDLE m_handles[count] = {};
    bool m_isAttached = false;
};

} // namespace

void ConsoleBreak::prepare(QProcess& process)
{
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* arguments) {
        arguments->flags |= CREATE_NEW_PROCESS_GROUP;
    });
}

// The event goes through a console that this process and the group have in common.
bool ConsoleBreak::send(qint64 process)
{
    const auto group = static_cast<DWORD>(process);
    if (GetConsoleCP() != 0) {
        return GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, group) != 0;
    }
    const BorrowedConsole console(group);
    return console.isAttached() && GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, group) != 0;
}
