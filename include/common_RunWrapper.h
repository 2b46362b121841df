// SPDX-License-Identifier: MIT
#pragma once

#include <common_ProcessRunner.h>
#include <kest_common_export.h>

#include <QFlags>
#include <QObject>
#include <QStringList>

class common_CommonSettingsSet;
class QFileInfo;

/// Sets a process runner up to run a solver component on a model, as the user's launch options say.
///
/// Give it a fresh runner that is not running: a set-up adds to the runner and clears nothing. The
/// caller starts the runner afterwards. The launch options are read from the user's file at every
/// step, so that changes count from the next run on.
///
/// Needs the service common_IApplicationInfo, whose userSettingsDirectory() has kest.ini, and the
/// environment variables KEST_HOME, which has the components, and KEST_USER_HOME, which has the
/// user's machines.kest and the copies of machines files. common_DefaultServices::setEnvironment()
/// lets these mean the same folders. The service common_IApplication is optional: without it,
/// messages are boxes that wait for an answer.
class KEST_COMMON_EXPORT common_RunWrapper : public QObject
{
    Q_OBJECT

public:
    /// How a component is to run. The numbers are fixed.
    enum RunOption {
        Parallel = 0x1, ///< several processes, on the hosts of the machines file
        Remote = 0x2,   ///< on the remote host
        FarmOut = 0x4   ///< the optimiser's evaluations on the hosts of the machines file
    };
    /// A combination of RunOption.
    Q_DECLARE_FLAGS(RunOptions, RunOption)

    /// What a parallel run passes to the component. The numbers are fixed.
    enum MachinesFileOption {
        CopyMachinesFile = 0, ///< the count of processes and a copy of the machines file
        ProcessCountOnly = 1  ///< the count only: the file is passed already
    };

    /// The runner that is set up.
    using Runner = common_ProcessRunner<common_KestProcessMessage>;

    /// The settings are not owned and must outlive the wrapper.
    explicit common_RunWrapper(common_CommonSettingsSet* settings);
    ~common_RunWrapper() override;

    // Each returns whether the run may start. If not, the user has been shown the reason, and the
    // runner is only partly set up. Without KEST_USER_HOME a run on the installation's machines
    // file may start, after a message to the user, although its copy of that file is missing.

    /// Always true; the options have no influence.
    bool setupPrekestProcess(Runner& runner, const QFileInfo& modelFile, QFlags<RunOption> options);
    /// False when a parallel run has no usable machines file.
    bool setupKestProcess(Runner& runner, const QFileInfo& modelFile, QFlags<RunOption> options);

    /// A farmed run without a machines file is set up without farming, after a message to the user.
    bool setupOptkestProcess(Runner& runner, const QFileInfo& modelFile, QFlags<RunOption> options);

    /// Always true.
    bool setupAmrkestProcess(Runner& runner, const QFileInfo& modelFile, QFlags<RunOption> options);

private:
    void applyComponent(Runner& runner, const QFileInfo& modelFile, const QString& program) const;
    void applyEnvironment(Runner& runner) const;
    void applyPreKestArguments(Runner& runner) const;
    void applyAdaptKestArguments(Runner& runner) const;
    void applyRunkestArguments(Runner& runner, QFlags<RunOption> options,
                               MachinesFileOption machinesFileOption);
    bool applyRemoteRunArguments(Runner& runner, QFlags<RunOption> options) const;
    void applyMachinesFileArguments(Runner& runner, const QStringList& options,
                                    MachinesFileOption machinesFileOption);
    QStringList getRunkestArguments(QFlags<RunOption> options) const;
    QStringList getProcessArguments(QStringList options, QString& processCount) const;
    bool validateMachinesFileForParallelRun(QFlags<RunOption> options) const;
    bool validateMachinesFileForFarmingRun(QFlags<RunOption> options) const;
    QStringList checkCompatibilityNP(QStringList options) const;

    common_CommonSettingsSet* m_pSettings;
    QString m_temporaryMachinesFile;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(common_RunWrapper::RunOptions)
