// SPDX-License-Identifier: MIT
#include "ComponentProgram.h"

#include "StopReason.h"

#include <Descendants.h>
#include <StopSignals.h>

#include <QCoreApplication>

namespace suite {

namespace {

constexpr int readerWatchInterval = 250; // ms

} // namespace

ComponentProgram::ComponentProgram(const QString& name, OptionGroup group)
    : m_component(name, group), m_group(group)
{
    m_readerWatch.setInterval(readerWatchInterval);
    connect(&m_readerWatch, &QTimer::timeout, this, &ComponentProgram::checkReader);
}

ComponentProgram::~ComponentProgram() = default;

std::optional<int> ComponentProgram::readCommandLine(const QStringList& arguments)
{
    return m_component.readCommandLine(arguments);
}

void ComponentProgram::run()
{
    if (m_isFinished) {
        return;
    }
    if (!preprocess()) {
        markFailed();
        finish();
        return;
    }
    m_readerWatch.start();
    work();
}

void ComponentProgram::stop(int signal)
{
    if (m_isFinished || !isGood()) {
        return;
    }
    m_component.findingPrinter().print(FindingKind::Stopped, {StopReason::text(signal)});
    markStopped(signal);
    end();
}

void ComponentProgram::markStopped(int signal)
{
    m_exitCode = StopReason::exitCode(signal);
}

bool ComponentProgram::isStopped() const
{
    return StopReason::signalOf(m_exitCode).has_value();
}

void ComponentProgram::checkReader()
{
    if (!m_isFinished && isGood() && printer().isReaderGone()) {
        markFailed();
        end();
    }
}

void ComponentProgram::fail(FindingKind kind, const QStringList& parts)
{
    m_component.findingPrinter().print(kind, parts);
    m_exitCode = exitFailure;
}

bool ComponentProgram::report(const FindingList& findings)
{
    m_component.findingPrinter().print(findings);
    if (findings.hasErrors()) {
        markFailed();
    }
    return !findings.hasErrors();
}

bool ComponentProgram::finishAfterCheck()
{
    const bool isCheck = commandLine().has(OptionGroup::Kest, QStringLiteral("--check-only"));
    if (isCheck) {
        printer().printPercentage(Marker::TotalPercentage, 100);
        finish();
    }
    return isCheck;
}

bool ComponentProgram::hasOption(const char* name) const
{
    return commandLine().has(m_group, QLatin1String(name));
}

QString ComponentProgram::option(const char* name) const
{
    return commandLine().value(m_group, QLatin1String(name));
}

void ComponentProgram::finish()
{
    if (m_isFinished) {
        return;
    }
    m_isFinished = true;
    m_readerWatch.stop();
    if (printer().hasFailed()) {
        markFailed();
    }
    Q_EMIT finished(m_exitCode);
}

void ComponentProgram::end()
{
    if (!stopWork()) {
        finish();
    }
}

int runComponent(ComponentProgram& program, const QStringList& words)
{
    const std::optional<int> done = program.readCommandLine(words);
    if (done) {
        return *done;
    }
    Descendants::bindToThisProgram(); // even an engine that is just being started
    QObject::connect(&program, &ComponentProgram::finished, QCoreApplication::instance(),
                     &QCoreApplication::exit, Qt::QueuedConnection);
    StopSignals::watch(&program, [&program](int signal) { program.stop(signal); });
    QMetaObject::invokeMethod(&program, &ComponentProgram::run, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

} // namespace suite
