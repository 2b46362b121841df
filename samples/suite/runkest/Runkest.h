#pragma once

#include "Component.h"
#include "ResultFiles.h"
#include "Sweep.h"
#include "SweepReport.h"

#include <QObject>
#include <QTimer>

#include <memory>

// The solver component: pre-processing, the sweep with the engine, the results. It works in the
// event loop, so that it can be stopped at any moment.
class Runkest : public QObject
{
    Q_OBJECT

public:
    Runkest();
    ~Runkest() override;

    // Reads the command line; an exit code when there is nothing to run.
    std::optional<int> readCommandLine(const QStringList& arguments);

    // Runs to the end and tells finished().
    void run();

    // Stops the run because of a signal: the exit code becomes 128 plus its number.
    void stop(int signal);

Q_SIGNALS:
    void finished(int exitCode);

private:
    bool prepare();
    void startSweep(const QString& engine);
    [[nodiscard]] int processCount() const;
    void takeResult(int index, const suite::EngineOutput& output);
    void printProgress(int index);
    void endSweep(bool isComplete);
    bool writeResults();
    void checkReader();
    void fail(suite::FindingKind kind, const QString& reason);
    void finish(int exitCode);

    suite::Component m_component;
    suite::SweepReport m_report;
    suite::ResultFiles m_results;
    QStringList m_resultPaths;
    std::unique_ptr<suite::SweepDeck> m_deck;
    std::unique_ptr<suite::Sweep> m_sweep;
    QTimer m_readerWatch;
    int m_exitCode = suite::ExitSuccess;
    bool m_isFinished = false;
};
