// SPDX-License-Identifier: MIT
#include "EnvironmentVariable.h"

#include <cstdlib>
#include <vector>

#include <windows.h>

namespace {

const wchar_t* wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

} // namespace

// The system's own functions: those of the C library keep names and values in the code page only.
QString EnvironmentVariable::value(const QString& name)
{
    std::vector<wchar_t> buffer(GetEnvironmentVariableW(wide(name), nullptr, 0));
    if (buffer.empty()) {
        return QString();
    }
    const DWORD length =
        GetEnvironmentVariableW(wide(name), buffer.data(), static_cast<DWORD>(buffer.size()));
    return QString::fromWCharArray(buffer.data(), static_cast<int>(length));
}

bool EnvironmentVariable::exists(const QString& name)
{
    return GetEnvironmentVariableW(wide(name), nullptr, 0) > 0;
}

// Also in the C library's copy, which qEnvironmentVariable() reads. It removes empty variables.
bool EnvironmentVariable::set(const QString& name, const QString& value)
{
    return _wputenv_s(wide(name), wide(value)) == 0 &&
           SetEnvironmentVariableW(wide(name), wide(value)) != 0;
}

Qt::CaseSensitivity EnvironmentVariable::caseOfNames()
{
    return Qt::CaseInsensitive;
}

// In shares (\\host\data$\x), "$" is a part of the name.
bool EnvironmentVariable::unknownReferencesStay()
{
    return true;
}
