// SPDX-License-Identifier: MIT
#include "CheckCommand.h"

#include "ErrorOutput.h"
#include "JsonReport.h"
#include "OutputCheck.h"
#include "SubcommandWords.h"
#include "TextReport.h"

#include <Translations.h>

#include <InputFile.h>

#include <QCoreApplication>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr int exitGood = 0;
constexpr int exitRemarks = 1;
constexpr int exitUnreadable = 2;
constexpr int pieceSize = 1 << 16;

const QString standardInput = QStringLiteral("-");

// Line by line, so that a component's lines are explained while it runs. Returns what went wrong;
// empty when nothing has.
QString readStandardInput(OutputCheck& check)
{
    QByteArray bytes;
    for (int byte = std::getc(stdin); byte != EOF; byte = std::getc(stdin)) {
        bytes.append(static_cast<char>(byte));
        if (byte == '\n' || bytes.size() >= pieceSize) {
            check.add(bytes);
            bytes.clear();
        }
    }
    const int error = errno;
    check.add(bytes);
    return std::ferror(stdin) != 0
               ? QCoreApplication::translate("CheckCommand", "cannot read the standard input: %1")
                     .arg(QString::fromLocal8Bit(std::strerror(error)))
               : QString();
}

QString readFile(OutputCheck& check, const QString& path)
{
    suite::InputFile file(path);
    const auto take = [&check](const QByteArray& bytes) {
        check.add(bytes);
        return true;
    };
    if (file.readPieces(take)) {
        return QString();
    }
    const QString hint =
        file.problem() == suite::InputFile::Problem::NotRegular
            ? QCoreApplication::translate("CheckCommand", "; \"kestmark check -\" reads a pipe")
            : QString();
    return QCoreApplication::translate("CheckCommand", "cannot read %1: %2")
               .arg(path, file.reason()) +
           hint;
}

} // namespace

int checkOutput(const SubcommandWords& words)
{
    const auto style = words.has("--remarks") ? ReportStyle::RemarksOnly : ReportStyle::AllLines;
    std::unique_ptr<OutputReport> report;
    if (words.has("--json")) {
        Translations::remove(); // scripts read the texts of remarks, too
        report = std::make_unique<JsonReport>(stdout, style);
    } else {
        report = std::make_unique<TextReport>(stdout, style);
    }
    OutputCheck check(*report);
    const QString name = words.operands().value(0, standardInput);
    const QString problem =
        name == standardInput ? readStandardInput(check) : readFile(check, name);
    if (!problem.isEmpty()) {
        report->fail(problem);
        ErrorOutput::print(problem);
        return exitUnreadable;
    }
    check.finish();
    return check.summary().remarks > 0 ? exitRemarks : exitGood;
}
