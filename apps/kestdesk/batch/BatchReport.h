#pragma once

#include "RunOutcome.h"
#include "Terminal.h"

#include <common_IProcessMessage.h>

#include <QObject>
#include <QTimer>
#include <QVector>

#include <memory>

class Run;
class RunForecast;

/// Shows runs on the terminal, one after the other: what the component prints as it comes, how far
/// it is, and a summary at the end.
class BatchReport : public QObject
{
    Q_OBJECT

public:
    BatchReport();

    /// Shows everything on standard error from now on, for standard output that is read by another
    /// program.
    void leaveOutputFree();

    /// Shows a waiting run until it has ended, which it must before it is deleted and before the
    /// next one. The forecast says how long it still takes; it lives as long as the run.
    void follow(const Run& run, const RunForecast& forecast);

    /// On standard error.
    void reportError(const QString& text);

    /// Says how to see the record with that number again.
    void showRecord(int number);

    /// After several models: how many ended how, and which of them were not valid. There may be
    /// fewer outcomes than models; the rest has not been begun.
    void summarise(const QStringList& models, const QVector<RunOutcome::Kind>& outcomes);

private:
    void add(const common_IProcessMessage& message);
    void end();
    void showSummary();
    void showOutcome();
    QString modelName() const;
    int count(common_IProcessMessage::Type type) const { return m_counts[type]; }
    void showLine(const QString& text, Terminal::Colour colour);
    void showStatus();
    void flushSoon();

    std::unique_ptr<Terminal> m_output;
    QTimer m_statusTimer;
    QTimer m_flushTimer;
    const Run* m_run = nullptr;                              ///< the one that is shown
    const RunForecast* m_forecast = nullptr;                 ///< of the run
    int m_counts[common_IProcessMessage::Variable + 1] = {}; ///< by message type
};
