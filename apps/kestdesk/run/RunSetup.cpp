#include "RunSetup.h"

#include "BatchRunner.h"
#include "Installation.h"

#include <FileName.h>

#include <common_CommonSettingsSet.h>

#include <QDir>
#include <QFileInfo>

namespace {

// The copy of the machines file that the arguments name, when it is not there: copying fails
// silently.
QString missingMachinesFile(const common_ProcessRunnerBase& runner)
{
    const QStringList arguments = runner.getArguments();
    const int option = arguments.indexOf(QStringLiteral("--machines-file"), 1); // behind the model
    if (option < 0) {
        return QString();
    }
    const QString file = QDir(runner.getWorkingDirectory()).filePath(arguments.value(option + 1));
    return QFileInfo(file).isFile() ? QString() : file;
}

// What is missing before anything can be set up; empty when nothing is.
QString missingPart(const Component& component, const QFileInfo& model)
{
    const QString nameProblem =
        suite::FileName::problem(suite::FileName::absolute(model.filePath()));
    if (!nameProblem.isEmpty()) {
        return QStringLiteral("the model %1 cannot be run: %2").arg(model.filePath(), nameProblem);
    }
    if (!model.exists()) {
        return QStringLiteral("there is no model %1").arg(model.filePath());
    }
    if (model.isDir()) {
        return QStringLiteral("%1 is a folder and not a model").arg(model.filePath());
    }
    const QString name = QLatin1String(component.name);
    return Installation::program(name).isEmpty()
               ? QStringLiteral("there is no component %1 in %2 (KEST_HOME names the installation)")
                     .arg(name, Installation::directory())
               : QString();
}

} // namespace

RunSetup::Readiness RunSetup::apply(BatchRunner& runner, const Component& component,
                                    common_RunWrapper::RunOptions options, const QFileInfo& model,
                                    common_CommonSettingsSet& settings)
{
    const QString missing = missingPart(component, model);
    if (!missing.isEmpty()) {
        return {false, missing};
    }
    QDir().mkpath(qEnvironmentVariable("KEST_USER_HOME")); // takes the copy of a machines file
    common_RunWrapper wrapper(&settings);
    if (!(wrapper.*component.setUp)(runner, model, options)) {
        return {false, QString()};
    }
    const QString machinesFile = missingMachinesFile(runner);
    if (!machinesFile.isEmpty()) {
        return {false,
                QStringLiteral("the machines file cannot be copied to %1").arg(machinesFile)};
    }
    return {true, QString()};
}
