// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentProgram.h"
#include "FramedProcess.h"
#include "PartialResults.h"

#include <RemoteHost.h>

#include <StagedEnd.h>

#include <memory>

/// A run of the solver on another host: sends the model over ssh, prints the remote output as it
/// arrives, and writes the results beside the model.
class RemoteRun : public suite::ComponentProgram
{
    Q_OBJECT

public:
    RemoteRun();
    ~RemoteRun() override;

    /// Whether the command line requests a run on another host.
    static bool isAskedFor(const QStringList& arguments);

protected:
    bool preprocess() override;
    void work() override;
    bool stopWork() override;

private:
    bool checkHost();
    bool readFiles();
    bool readMachines();
    bool readPartial(const suite::Model& model);
    [[nodiscard]] QStringList sshArguments() const;
    [[nodiscard]] QStringList remoteArguments() const;
    void sendRequest();
    void take(const suite::Frame& frame);
    void takeHello(const suite::Frame& frame);
    void takeFile(const suite::Frame& frame);
    void takePartial(const suite::Frame& frame);
    void takeLine(const QString& text);
    bool writeFiles();
    void failConnection(const QString& reason);
    void endProcess();
    void end();
    void beginEnd();

    struct ResultFile
    {
        QString path;
        QByteArray content;
    };

    std::unique_ptr<suite::RemoteHost> m_host;
    QByteArray m_model;
    QByteArray m_machines;
    bool m_hasMachines = false;
    std::unique_ptr<suite::PartialResults> m_partial; ///< null if the results cannot be kept
    QByteArray m_earlierResults;                      ///< of the run that is resumed
    bool m_hasResults = false;
    bool m_isEnded = false;
    suite::FramedProcess m_process;
    QVector<ResultFile> m_files; ///< not written yet
    StagedEnd m_processEnd;
    bool m_hasExitCode = false;
};
