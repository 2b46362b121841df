// SPDX-License-Identifier: MIT
#include "ErrorOutput.h"

#include <VisibleText.h>

#include <QCoreApplication>

#include <cstdio>

namespace {

void printLine(const QString& text)
{
    std::fprintf(stderr, "%s\n", qPrintable(suite::visibleText(text)));
}

} // namespace

void ErrorOutput::print(const QString& text)
{
    printLine(QCoreApplication::applicationName() + QStringLiteral(": ") + text);
}

void ErrorOutput::printRefusal(const QString& text, const QString& hint)
{
    print(text);
    if (!hint.isEmpty()) {
        printLine(hint);
    }
    printLine(QCoreApplication::translate("ErrorOutput", "Try \"%1 --help\".")
                  .arg(QCoreApplication::applicationName()));
}
