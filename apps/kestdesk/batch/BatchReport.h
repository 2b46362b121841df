// SPDX-License-Identifier: MIT
#pragma once

#include "RunOutcome.h"
#include "Terminal.h"

#include <common_IProcessMessage.h>

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

class Run;
class RunForecast;

/// Shows runs in the terminal: the output of their components, their progress, and a summary at the
/// end of each run and of the batch.
class BatchReport : public QObject
{
    Q_OBJECT

public:
    /// The outcome of a model's run.
    struct Result
    {
        QString model;
        std::optional<RunOutcome::Kind> outcome; ///< nothing if the run has not begun
    };

    BatchReport();

    /// Whether each line begins with the name of its model, for simultaneous runs.
    void setNaming(bool isNaming) { m_isNaming = isNaming; }

    /// Writes everything to standard error from now on, because another program reads standard
    /// output.
    void leaveOutputFree();

    /// Shows a waiting run until end(), which must be called before the run is deleted. The
    /// forecast gives the remaining time and must live until then.
    void follow(const Run& run, const RunForecast& forecast);

    /// Writes the text to standard error.
    void reportError(const QString& text);

    /// Shows how a run has ended and, unless it was valid, the command that shows its record. The
    /// number is that of the record, 0 for none. Does nothing if the run is not shown.
    void end(const Run& run, int number);

    /// Summarises several models: the number of runs for each outcome, and the models whose runs
    /// were not valid.
    void summarise(const std::vector<Result>& results);

private:
    struct Shown
    {
        const Run* run;
        const RunForecast* forecast;
        int counts[common_IProcessMessage::Variable + 1] = {}; ///< by message type
    };

    void add(Shown& shown, const common_IProcessMessage& message);
    void showSummary(const Shown& shown);
    void showOutcome(const Run& run, int number);
    void showFailure(const Result& result);
    void writeLine(const Run& run, const QString& text,
                   Terminal::Colour colour = Terminal::Colour::None);
    QString status() const;
    void showStatus();
    void flushSoon();

    std::unique_ptr<Terminal> m_output;
    QTimer m_statusTimer;
    QTimer m_flushTimer;
    std::vector<std::unique_ptr<Shown>> m_shown; ///< runs that have not ended
    bool m_isNaming = false;
};
