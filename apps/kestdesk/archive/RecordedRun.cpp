// SPDX-License-Identifier: MIT
#include "RecordedRun.h"

#include "ComponentRunner.h"
#include "MachinesCopies.h"
#include "RunOptionWords.h"

#include <HostRemoval.h>
#include <InputFile.h>
#include <OutputFile.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace {

using RecordedRun::ModelFile;
using RecordedRun::ModelState;
using RunSetup::Readiness;

const QString machinesFileOption = QStringLiteral("--machines-file");
constexpr int behindTheModel = 1; // the model is always the first argument
constexpr qint64 megabyte = 1 << 20;
constexpr qint64 largestModel = 64 * megabyte;
constexpr qint64 largestMachinesFile = megabyte;
constexpr int mostCopies = 1000; // of a model in its folder

Readiness problem(const QString& text)
{
    return {RunSetup::Obstacle::Problem, text};
}

QString checksumOf(const QByteArray& content)
{
    const QByteArray hash = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex());
}

// dipole-run17.nec, dipole-run17-2.nec, ...
QString copyPath(const RunRecord& record, int attempt)
{
    const QFileInfo model(record.model);
    const QString suffix = model.suffix().isEmpty() ? QString() : QLatin1Char('.') + model.suffix();
    const QString counter = attempt == 1 ? QString() : QStringLiteral("-%1").arg(attempt);
    return model.dir().filePath(
        QStringLiteral("%1-run%2%3").arg(model.completeBaseName()).arg(record.number).arg(counter) +
        suffix);
}

// What is missing to start the run as it was, as a clause; empty if nothing is missing.
QString missingPart(const Run& run, const RunRecord& record)
{
    // In its folder it is found with the suffix that programs have on some systems, and records
    // have not.
    const QFileInfo program(record.program);
    if (QStandardPaths::findExecutable(program.fileName(), {program.path()}).isEmpty()) {
        return QStringLiteral("%1, which the run was started with, is no longer there")
            .arg(record.program);
    }
    if (!QFileInfo(record.workingDirectory).isDir()) {
        return QStringLiteral("the folder %1, in which the run was started, is no longer there")
            .arg(record.workingDirectory);
    }
    return QFileInfo(run.model()).isFile()
               ? QString()
               : QStringLiteral("there is no model %1").arg(run.model());
}

// Replaces the name of the run's machines file, which was deleted at the end of the run, by the
// name of a new copy.
Readiness addMachinesFile(ComponentRunner& runner, const RunRecord& record, QStringList& arguments)
{
    const int option = arguments.indexOf(machinesFileOption, behindTheModel);
    if (option < 0 || option + 1 >= arguments.size()) {
        return {};
    }
    const auto content = RecordedRun::machinesFile(record);
    if (!content) {
        return problem(QStringLiteral("the record of run %1 has no copy of the machines file")
                           .arg(record.number));
    }
    const MachinesCopies copies(qEnvironmentVariable("KEST_USER_HOME"));
    copies.removeLeft();
    const QString copy = copies.add(runner, *content);
    if (copy.isEmpty()) {
        return problem(QStringLiteral("the machines file cannot be copied to %1")
                           .arg(qEnvironmentVariable("KEST_USER_HOME")));
    }
    arguments[option + 1] = QDir::toNativeSeparators(copy);
    return {};
}

Readiness setUpRecorded(const Run& run, const RunRecord& record)
{
    ComponentRunner& runner = *run.runner();
    runner.deleteTemporaryFiles();
    const QString missing = missingPart(run, record);
    if (!missing.isEmpty()) {
        return problem(missing);
    }
    QStringList arguments = record.arguments;
    arguments.first() = QFileInfo(run.model()).fileName();
    Readiness readiness = addMachinesFile(runner, record, arguments);
    if (readiness.isReady()) {
        runner.setExecutable(QFileInfo(record.program));
        runner.setWorkingDirectory(record.workingDirectory);
        runner.setArguments(arguments);
        runner.setProcessEnvironment(record.environment);
    }
    return readiness;
}

} // namespace

ModelState RecordedRun::modelState(const RunRecord& record)
{
    const auto content = suite::InputFile(record.model).read(largestModel);
    if (!content) {
        return ModelState::Missing;
    }
    const bool isKnown = !record.modelChecksum.isEmpty();
    return isKnown && checksumOf(*content) != record.modelChecksum ? ModelState::Changed
                                                                   : ModelState::Unchanged;
}

bool RecordedRun::hasModelCopy(const RunRecord& record)
{
    return QFileInfo(record.modelCopyPath()).isFile();
}

ModelFile RecordedRun::writeModel(const RunRecord& record)
{
    const auto content = suite::InputFile(record.modelCopyPath()).read(largestModel);
    if (!content) {
        return {{}, QStringLiteral("the record of run %1 has no model").arg(record.number)};
    }
    for (int attempt = 1; attempt <= mostCopies; ++attempt) {
        const QString path = copyPath(record, attempt);
        const QFileInfo file(path);
        if (!file.exists() && !file.isSymLink()) {
            suite::OutputFile output(path);
            return output.replace(*content)
                       ? ModelFile{path, {}}
                       : ModelFile{{},
                                   QStringLiteral("the model cannot be written to %1: %2")
                                       .arg(path, output.reason())};
        }
        if (suite::InputFile(path).read(largestModel) == content) {
            return {path, {}};
        }
    }
    return {{},
            QStringLiteral("too many copies of the model are in %1")
                .arg(QFileInfo(record.model).path())};
}

std::optional<QByteArray> RecordedRun::machinesFile(const RunRecord& record)
{
    suite::InputFile file(QDir(record.folder).filePath(record.machinesCopy));
    const auto content =
        record.machinesCopy.isEmpty() ? std::nullopt : file.read(largestMachinesFile);
    return content ? std::optional(suite::HostRemoval(*content, record.leftOutHosts).content())
                   : std::nullopt;
}

bool RecordedRun::hasCommand(const RunRecord& record)
{
    return record.state != RunRecord::State::NotStarted && !record.program.isEmpty() &&
           !record.arguments.isEmpty();
}

std::unique_ptr<Run> RecordedRun::make(const RunRecord& record, const QString& model,
                                       common_ActivePtr<ComponentRunner> runner, QObject* parent)
{
    const Component* const component = Component::find(record.component);
    return component == nullptr
               ? nullptr
               : std::make_unique<Run>(*component, model, std::move(runner), parent);
}

Readiness RecordedRun::setUp(Run& run, const RunRecord& record, common_CommonSettingsSet& settings)
{
    if (!hasCommand(record)) {
        return run.setUp(RunOptionWords::options(record.runOptions), settings);
    }
    return run.setUpBy([&run, &record] { return setUpRecorded(run, record); });
}
