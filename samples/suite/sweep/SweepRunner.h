#pragma once

#include "EngineOutput.h"

#include <QObject>

namespace suite {

/// Solves the decks of a sweep, wherever the engine runs. Results are told strictly in the order of
/// the frequencies, whatever the order they come in.
class SweepRunner : public QObject
{
    Q_OBJECT

public:
    ~SweepRunner() override;

    /// Nothing starts before this is called.
    virtual void start() = 0;

    /// Ends all processes of the sweep: asks them, and kills after a moment those that stay. Tells
    /// ended(). May be called more than once.
    virtual void stop() = 0;

Q_SIGNALS:
    /// The result of a frequency is there, whether or not those before it are.
    void arrived(int index, const suite::EngineOutput& output);

    /// The result of the next frequency is there.
    void solved(int index, const suite::EngineOutput& output);

    /// Something the user should know and the sweep goes on with.
    void warned(const QString& text);

    /// The sweep has failed for this reason; ended() follows.
    void failed(const QString& reason);

    /// No process runs any more. Told once.
    void ended(bool isComplete);

protected:
    SweepRunner();

    /// The reasons of a failure that all kinds of sweeps have alike; the frequency is in MHz.
    static QString frequencyError(double frequency, const QString& reason);
    static QString noImpedanceError();
};

} // namespace suite
