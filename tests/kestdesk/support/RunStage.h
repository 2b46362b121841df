// SPDX-License-Identifier: MIT
#pragma once

#include "Desk.h"

#include <ApplicationIdentity.h>
#include <Descendants.h>
#include <Run.h>
#include <Services.h>

#include <common_CommonSettingsSet.h>

#include <QSignalSpy>

#include <memory>

/// Runs without a window and a terminal, on an installation whose components are fake ones and with
/// a user's folder of its own.
class RunStage
{
public:
    static constexpr int longTime = 60000; // ms, on a machine with much to do

    RunStage()
    {
        Descendants::bindToThisProgram();
        for (const char* const name : {"KEST_HOME", "KEST_USER_HOME", "KEST_TEST_MARK"}) {
            qputenv(name, m_desk.environment().value(text(name)).toLocal8Bit());
        }
        if (!Processes::install(text(FAKE_COMPONENT), m_desk.path("home/bin/runkest"))) {
            qFatal("no component");
        }
        m_services = std::make_unique<Services>(
            ApplicationIdentity{text("kestdesk"), text("models/dipole.nec")}, true);
        m_settings =
            std::make_unique<common_CommonSettingsSet>(m_desk.path("user"), text("kestdesk"));
    }

    /// Whatever a failed test has left behind is ended.
    ~RunStage() { endProcesses(); }

    RunStage(const RunStage&) = delete;
    RunStage& operator=(const RunStage&) = delete;

    const Desk& desk() const { return m_desk; }

    void endProcesses() const { Processes::send(SIGKILL, m_desk.processes()); }

    /// Of a model for the fake component, which does what its word says.
    std::unique_ptr<Run> makeRun(const QByteArray& word, const char* name = "m.nec") const
    {
        const QString model = m_desk.path(text("models/") + text(name));
        writeFile(model, word);
        return makeRunOf(model);
    }

    static std::unique_ptr<Run> makeRunOf(const QString& model)
    {
        return std::make_unique<Run>(*Component::find(text("runkest")), model,
                                     common_ActivePtr<ComponentRunner>(new ComponentRunner));
    }

    RunSetup::Readiness setUp(Run& run, common_RunWrapper::RunOptions options = {}) const
    {
        return run.setUp(options, *m_settings);
    }

    /// Sets the run up, starts it and waits until its component listens.
    void startWaiting(Run& run, common_RunWrapper::RunOptions options = {}) const
    {
        QString output;
        const QMetaObject::Connection connection = QObject::connect(
            &run, &Run::messageReceived, &run,
            [&output](const common_IProcessMessage& message) { output += message.getText(); });
        QVERIFY(setUp(run, options).isReady());
        QVERIFY(run.start());
        QTRY_VERIFY_WITH_TIMEOUT(output.contains(text("up")), longTime);
        QObject::disconnect(connection);
    }

private:
    Desk m_desk;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<common_CommonSettingsSet> m_settings;
};
