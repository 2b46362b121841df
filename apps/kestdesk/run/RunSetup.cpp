#include "RunSetup.h"

#include "BatchRunner.h"
#include "Installation.h"

#include <common_CommonSettingsSet.h>

#include <QDir>
#include <QFileInfo>

namespace {

// The copy of the machines file that the arguments name, when it is not there: copying fails
// silently.
QString missingMachinesFile(const common_ProcessRunnerBase& runner)
{
    const QStringList arguments = runner.getArguments();
    const int option = arguments.indexOf(QStringLiteral("--machines-file"));
    if (option < 0) {
        return QString();
    }
    const QString file = QDir(runner.getWorkingDirectory()).filePath(arguments.value(option + 1));
    return QFileInfo(file).isFile() ? QString() : file;
}

} // namespace

QString RunSetup::apply(BatchRunner& runner, const Component& component,
                        common_RunWrapper::RunOptions options, const QFileInfo& model,
                        common_CommonSettingsSet& settings)
{
    if (!model.exists()) {
        return QStringLiteral("there is no model %1").arg(model.filePath());
    }
    if (model.isDir()) {
        return QStringLiteral("%1 is a folder and not a model").arg(model.filePath());
    }
    const QString name = QLatin1String(component.name);
    if (Installation::program(name).isEmpty()) {
        return QStringLiteral("there is no component %1 in %2 (KEST_HOME names the installation)")
            .arg(name, Installation::directory());
    }
    QDir().mkpath(qEnvironmentVariable("KEST_USER_HOME")); // takes the copy of a machines file
    common_RunWrapper wrapper(&settings);
    if (!(wrapper.*component.setUp)(runner, model, options)) {
        return QStringLiteral("%1 was not started").arg(name);
    }
    const QString missing = missingMachinesFile(runner);
    return missing.isEmpty()
               ? QString()
               : QStringLiteral("the machines file cannot be copied to %1").arg(missing);
}
