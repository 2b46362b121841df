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

/// Shows runs on the terminal: what their components print as it comes, how far they are, and a
/// summary at the end of each and of all.
class BatchReport : public QObject
{
    Q_OBJECT

public:
    /// What became of a model.
    struct Result
    {
        QString model;
        std::optional<RunOutcome::Kind> outcome; ///< nothing for one that has not been begun
    };

    BatchReport();

    /// Whether each line begins with the name of its model, for runs at the same time.
    void setNaming(bool isNaming) { m_isNaming = isNaming; }

    /// Shows everything on standard error from now on, for standard output that is read by another
    /// program.
    void leaveOutputFree();

    /// Shows a waiting run until end(), which must come before the run is deleted. The forecast
    /// says how long it still takes; it lives as long as the run.
    void follow(const Run& run, const RunForecast& forecast);

    /// On standard error.
    void reportError(const QString& text);

    /// Shows how a run has ended, and unless it was valid how to see its record again, which has
    /// the number, 0 for none. Nothing when the run is not shown.
    void end(const Run& run, int number);

    /// After several models: how many ended how, and which of them were not valid.
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
    std::vector<std::unique_ptr<Shown>> m_shown; ///< those that have not ended
    bool m_isNaming = false;
};
