#include "BatchRun.h"

#include "Descendants.h"
#include "Installation.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

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

BatchRun::BatchRun(BatchReport& report, Finished finished)
    : m_report(report), m_finished(std::move(finished)), m_runner(new BatchRunner)
{}

void BatchRun::start(const Component& component, common_RunWrapper::RunOptions options,
                     const QString& model, common_CommonSettingsSet& settings)
{
    m_report.begin(model);
    const QString complaint = setUp(component, options, QFileInfo(model), settings);
    if (complaint.isEmpty()) {
        run();
    } else {
        m_runner->discardTemporaryFiles();
        refuse(complaint);
    }
}

// Why the run cannot start; empty when it can.
QString BatchRun::setUp(const Component& component, common_RunWrapper::RunOptions options,
                        const QFileInfo& model, common_CommonSettingsSet& settings)
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
    if (!(wrapper.*component.setUp)(*m_runner, model, options)) {
        return QStringLiteral("%1 was not started").arg(name);
    }
    const QString missing = missingMachinesFile(*m_runner);
    return missing.isEmpty()
               ? QString()
               : QStringLiteral("the machines file cannot be copied to %1").arg(missing);
}

void BatchRun::run()
{
    startObserving(m_runner.get());
    if (!m_runner->run()) {
        stopObserving();
        m_runner->discardTemporaryFiles();
    }
}

void BatchRun::stop()
{
    m_stopRequested = true;
    m_runner->stopProcess();
}

void BatchRun::kill()
{
    m_stopRequested = true;
    Descendants::killAll();
}

void BatchRun::onProcessStarted(const QString& /*executable*/, const QStringList& /*arguments*/)
{}

void BatchRun::onFailedProcessStarted(const QString& executable, const QStringList& /*arguments*/,
                                      const QString& errorString)
{
    refuse(QStringLiteral("cannot start %1: %2").arg(executable, errorString));
}

void BatchRun::onProcessMessageReceived(const common_IProcessMessage& message)
{
    m_report.add(message);
}

void BatchRun::onProcessDone()
{
    const bool valid = m_report.totalPercentage() == 100 && m_runner->normalExit();
    if (m_stopRequested) {
        finish(Outcome::Stopped);
    } else {
        finish(valid ? Outcome::Valid : Outcome::Fault);
    }
}

void BatchRun::onExitCodeChanged(int /*exitCode*/)
{}

void BatchRun::refuse(const QString& reason)
{
    m_report.complain(reason);
    finish(Outcome::NotStarted);
}

void BatchRun::finish(Outcome outcome)
{
    m_report.end(outcome);
    m_finished(outcome);
}
