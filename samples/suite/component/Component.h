// SPDX-License-Identifier: MIT
#pragma once

#include "CommandLine.h"
#include "FindingPrinter.h"
#include "MarkerPrinter.h"
#include "ModelFile.h"
#include "Preprocessor.h"

#include <optional>

namespace suite {

constexpr int exitSuccess = 0;
constexpr int exitFailure = 1;

/// The common part of all components: reads the command line, prints the help, and checks the
/// model.
class Component
{
public:
    /// The name is that of the program; the group is that of its own options.
    Component(QString name, OptionGroup group);

    /// Reads the command line. Returns an exit code if nothing is left to do.
    std::optional<int> readCommandLine(const QStringList& arguments);

    /// Pre-processing: checks the model, prints the findings and, on request, the variables. False
    /// if the component must end.
    bool preprocess();

    [[nodiscard]] const CommandLine& commandLine() const { return *m_commandLine; }
    [[nodiscard]] const ModelFile& modelFile() const { return *m_modelFile; }
    [[nodiscard]] const Preprocessor& preprocessor() const { return *m_preprocessor; }
    MarkerPrinter& printer() { return m_printer; }

    /// The exit code after work without errors: a failure if output was lost.
    [[nodiscard]] int printedExitCode() const;

    /// A printer of findings about the model.
    FindingPrinter findingPrinter();

private:
    bool checkQuietly();
    [[nodiscard]] bool hasBlockingErrors() const;
    void printVariables();
    bool writeVariables();
    [[nodiscard]] bool hasPrekestOption(const QString& name) const;

    QString m_name;
    OptionGroup m_group;
    MarkerPrinter m_printer;
    std::optional<CommandLine> m_commandLine;
    std::optional<ModelFile> m_modelFile;
    std::optional<Preprocessor> m_preprocessor;
};

} // namespace suite
