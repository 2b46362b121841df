// SPDX-License-Identifier: MIT
#include "Component.h"

#include <ResultFiles.h>
#include <SuiteVersion.h>

#include <utility>

namespace suite {

Component::Component(QString name, OptionGroup group) : m_name(std::move(name)), m_group(group)
{}

std::optional<int> Component::readCommandLine(const QStringList& arguments)
{
    m_commandLine.emplace(m_group, arguments);
    if (!m_commandLine->errors().isEmpty()) {
        FindingPrinter findings(m_printer, m_name);
        for (const QString& error : m_commandLine->errors()) {
            findings.print(FindingKind::BadCommandLine, {error});
        }
        return exitFailure;
    }
    if (m_commandLine->has(OptionGroup::Common, QStringLiteral("--help"))) {
        const QStringList lines = CommandLine::help(m_name, m_group).split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            m_printer.printText(line);
        }
        return printedExitCode();
    }
    if (m_commandLine->has(OptionGroup::Common, QStringLiteral("--version"))) {
        m_printer.printText(m_name + QLatin1Char(' ') + version());
        return printedExitCode();
    }
    m_modelFile.emplace(m_commandLine->model());
    return std::nullopt;
}

// An answer that is lost, as on a full disk, is a failure.
int Component::printedExitCode() const
{
    return m_printer.hasFailed() ? exitFailure : exitSuccess;
}

bool Component::preprocess()
{
    if (m_commandLine->has(OptionGroup::Adaptkest, QStringLiteral("--run-from-runkest"))) {
        return checkQuietly();
    }
    m_printer.printText(QStringLiteral("Pre-processing ") + m_modelFile->name());
    m_printer.printPercentage(Marker::Percentage, 0);
    m_preprocessor.emplace(*m_modelFile);
    const FindingList& findings = m_preprocessor->findings();
    findingPrinter().print(findings);
    if (hasBlockingErrors()) {
        return false;
    }
    if (hasPrekestOption(QStringLiteral("--print-variables"))) {
        printVariables();
    }
    if (hasPrekestOption(QStringLiteral("--print-variables-to-out")) && !writeVariables()) {
        return false;
    }
    m_printer.printPercentage(Marker::Percentage, 100);
    return true;
}

// What was found has been told by the program that started this one, unless the model has changed.
bool Component::checkQuietly()
{
    m_preprocessor.emplace(*m_modelFile);
    if (hasBlockingErrors()) {
        findingPrinter().print(m_preprocessor->findings());
        return false;
    }
    return true;
}

bool Component::hasBlockingErrors() const
{
    const FindingList& findings = m_preprocessor->findings();
    const bool isAllowed = hasPrekestOption(QStringLiteral("--ignore-errors"));
    return findings.hasFatalErrors() || (findings.hasErrors() && !isAllowed);
}

FindingPrinter Component::findingPrinter()
{
    return {m_printer, m_modelFile->name()};
}

void Component::printVariables()
{
    const QStringList variables = m_preprocessor->variables();
    for (const QString& variable : variables) {
        m_printer.print(Marker::Variable, variable);
    }
}

bool Component::writeVariables()
{
    const QString path = m_modelFile->resultPath(QStringLiteral("pre"));
    const QString text = m_preprocessor->variables().join(QLatin1Char('\n')) + QLatin1Char('\n');
    ResultFiles files;
    if (files.replace(path, text.toUtf8())) {
        m_printer.printFiles(files.paths());
        return true;
    }
    findingPrinter().print(FindingKind::ResultNotWritten, {files.error()});
    return false;
}

bool Component::hasPrekestOption(const QString& name) const
{
    return m_commandLine->has(OptionGroup::Prekest, name);
}

} // namespace suite
