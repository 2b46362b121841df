// SPDX-License-Identifier: MIT
#pragma once

#include "Component.h"

#include <QObject>
#include <QTimer>

namespace suite {

/// A component that works in the event loop, so that it can be stopped at any moment: it reads its
/// command line, checks the model, works, and ends once.
class ComponentProgram : public QObject
{
    Q_OBJECT

public:
    ~ComponentProgram() override;

    /// Reads the command line. Returns an exit code if there is nothing to run.
    std::optional<int> readCommandLine(const QStringList& arguments);

    /// Runs to the end and emits finished().
    void run();

    /// Stops the run because of a signal: the exit code becomes 128 plus its number. Prints a
    /// notice, not an error.
    void stop(int signal);

Q_SIGNALS:
    void finished(int exitCode);

protected:
    /// The name is that of the program; the group is that of its own options.
    ComponentProgram(const QString& name, OptionGroup group);

    /// Checks the model. False if the run ends here, after a message.
    virtual bool preprocess() { return m_component.preprocess(); }

    /// The work after the check of the model. It may return while processes run; finish() is called
    /// when the last of them has ended.
    virtual void work() = 0;

    /// Starts to end the processes of the work; false if none runs.
    virtual bool stopWork() = 0;

    Component& component() { return m_component; }
    [[nodiscard]] const Component& component() const { return m_component; }
    [[nodiscard]] const CommandLine& commandLine() const { return m_component.commandLine(); }

    /// Whether an option of the component's own group was given, and its last value.
    [[nodiscard]] bool hasOption(const char* name) const;
    [[nodiscard]] QString option(const char* name) const;

    MarkerPrinter& printer() { return m_component.printer(); }

    /// Prints an error; the run will end with a failure.
    void fail(FindingKind kind, const QStringList& parts);
    void fail(FindingKind kind, const QString& reason) { fail(kind, QStringList(reason)); }

    /// The run will end with a failure whose reason has been printed already.
    void markFailed() { m_exitCode = exitFailure; }

    /// The run will end as stopped by this signal. The message of the other component that was
    /// stopped has already been passed on.
    void markStopped(int signal);

    /// Prints findings. False if there are errors among them: then the run will end with a failure.
    bool report(const FindingList& findings);

    /// If only the check of the model was requested, ends the run and returns true.
    bool finishAfterCheck();

    /// False once an error was printed or a stop was asked for.
    [[nodiscard]] bool isGood() const { return m_exitCode == exitSuccess; }

    /// True once a stop was asked for.
    [[nodiscard]] bool isStopped() const;

    /// Ends the run, with a failure if there was an error.
    void finish();

    /// Ends the run, without a message, if its output has lost its reader.
    void checkReader();

private:
    void end();

    Component m_component;
    OptionGroup m_group;
    QTimer m_readerWatch;
    int m_exitCode = exitSuccess;
    bool m_isFinished = false;
};

/// The main function of a component: reads the words behind the program's name, runs, and handles
/// the signals that stop it. Returns the exit code.
int runComponent(ComponentProgram& program, const QStringList& words);

} // namespace suite
