#pragma once

#include "EngineOutput.h"
#include "SweepDeck.h"

#include <QElapsedTimer>
#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <map>
#include <memory>

namespace suite {

class EngineProcess;

// Solves a model at its frequencies, several at once, each by an engine process of its own. Results
// are told strictly in the order of the frequencies, whatever the order they come in.
class Sweep : public QObject
{
    Q_OBJECT

public:
    // Nothing starts before start() is called. "atOnce" is the number of processes at a time.
    Sweep(SweepDeck deck, QString engine, int atOnce, bool needsImpedance);
    ~Sweep() override;

    void start();

    // Ends all engine processes: asks them, and kills after a moment those that stay. Tells
    // ended().
    void stop();

Q_SIGNALS:
    // The result of the next frequency is there.
    void solved(int index, const suite::EngineOutput& output);

    // The sweep has failed for this reason; ended() follows.
    void failed(const QString& reason);

    // No process runs any more. Told once.
    void ended(bool isComplete);

private:
    void startJobs();
    void startJob(int index);
    void finishJob(int index);
    void checkStart(int index, QProcess::ProcessError error);
    void tellResults();
    void fail(int index, const QString& reason);
    [[nodiscard]] QByteArray readOutput(int index, QString& error) const;
    [[nodiscard]] QString exitError(const EngineProcess& process, const EngineOutput& output) const;
    [[nodiscard]] QString filePath(int index, const QString& suffix) const;
    void watchEnd();
    [[nodiscard]] bool isAnyAlive() const;
    void signalAll(int signal);

    SweepDeck m_deck;
    QString m_engine;
    int m_atOnce;
    bool m_needsImpedance;
    QTemporaryDir m_folder;
    std::map<int, std::unique_ptr<EngineProcess>> m_processes;
    std::map<int, EngineOutput> m_waiting;
    int m_nextStart = 0;
    int m_nextResult = 0;
    bool m_stopping = false;
    QTimer m_endWatch;
    QElapsedTimer m_stopClock;
};

} // namespace suite
