// SPDX-License-Identifier: MIT
#pragma once

#include "EngineOutput.h"

#include <QObject>

namespace suite {

/// Solves the decks of a sweep, wherever the engine runs. Emits solved() strictly in the order of
/// the frequencies, whatever the order in which results arrive.
class SweepRunner : public QObject
{
    Q_OBJECT

public:
    ~SweepRunner() override;

    /// Starts the sweep.
    virtual void start() = 0;

    /// Ends all processes of the sweep: asks them to end, and kills the remaining ones after a
    /// moment. Then emits ended(). May be called more than once.
    virtual void stop() = 0;

Q_SIGNALS:
    /// The result of a frequency has arrived, perhaps before those of earlier frequencies.
    void arrived(int index, const suite::EngineOutput& output);

    /// The result of the next frequency is available.
    void solved(int index, const suite::EngineOutput& output);

    /// A text for the user. The sweep continues.
    void warned(const QString& text);

    /// The sweep has failed for this reason; ended() follows.
    void failed(const QString& reason);

    /// All processes have ended. Emitted once.
    void ended(bool isComplete);

protected:
    SweepRunner();

    /// Common texts for the reason of a failure. The frequency is in MHz.
    static QString frequencyError(double frequency, const QString& reason);
    static QString noImpedanceError();
};

} // namespace suite
