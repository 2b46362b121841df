// SPDX-License-Identifier: MIT
#include "ConsoleEncoding.h"

#include <QTextCodec>

#include <windows.h>

ConsoleEncoding::ConsoleEncoding() : m_earlier(GetConsoleOutputCP())
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    if (m_earlier != 0) {
        SetConsoleOutputCP(CP_UTF8);
    }
}

ConsoleEncoding::~ConsoleEncoding()
{
    if (m_earlier != 0) {
        SetConsoleOutputCP(m_earlier);
    }
}
