// SPDX-License-Identifier: MIT
#include "ExportCommand.h"

#include "Export.h"
#include "Result.h"
#include "ResultView.h"

#include <ErrorOutput.h>

#include <TerminalStream.h>
#include <VisibleText.h>

#include <cstdio>

namespace {

constexpr int exitBadFile = 1;

// As it is for scripts, and to be read on a terminal.
void printName(const QString& file)
{
    const QString shown = suite::isTerminal(stdout) ? suite::visibleText(file) : file;
    std::printf("%s\n", qPrintable(shown));
}

} // namespace

int exportResults(const QStringList& files, const QString& output, const QSize& size)
{
    QVector<Result> results;
    for (const QString& file : files) {
        results.append(Result::read(file));
        if (!results.last().error.isEmpty()) {
            ErrorOutput::print(QStringLiteral("%1: %2").arg(file, results.last().error));
            return exitBadFile;
        }
    }
    ResultView view;
    view.setResults(results);
    view.layOut(size);
    const QString error = Export::write(output, view, results);
    if (!error.isEmpty()) {
        ErrorOutput::print(error);
        return exitBadFile;
    }
    printName(output);
    return 0;
}
