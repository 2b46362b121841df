// SPDX-License-Identifier: MIT
#include "NativeArguments.h"

#include <QString>

#include <windows.h>

#include <shellapi.h>

std::vector<QByteArray> suite::NativeArguments::words(int /*argc*/, char* /*argv*/[])
{
    std::vector<QByteArray> result;
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 0; i < count; ++i) {
        result.push_back(QString::fromWCharArray(words[i]).toUtf8());
    }
    LocalFree(words);
    return result;
}
