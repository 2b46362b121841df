// SPDX-License-Identifier: MIT
#include "ConsoleBreak.h"

void ConsoleBreak::prepare(QProcess& /*process*/)
{}

bool ConsoleBreak::send(qint64 /*process*/)
{
    return true;
}
