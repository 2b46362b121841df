#pragma once

#include "RunOutcome.h"
#include "Terminal.h"

#include <common_IProcessMessage.h>

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// Shows a run on the terminal: what the component prints as it comes, how far it is, and a summary
/// at the end.
class BatchReport : public QObject
{
    Q_OBJECT

public:
    BatchReport();

    void begin(const QString& model);
    void add(const common_IProcessMessage& message);

    /// Why there is nothing more to expect; on standard error.
    void complain(const QString& text);

    /// The subject is what the reason of the outcome speaks of.
    void end(const RunOutcome& outcome, const QString& subject);

    /// After several models: how many ended how.
    void summarise(const QVector<RunOutcome::Kind>& outcomes);

    int totalPercentage() const { return m_totalPercentage; }

private:
    void showLine(const QString& text, Terminal::Colour colour);
    void showStatus();
    void flushSoon();

    Terminal m_output;
    QTimer m_statusTimer;
    QTimer m_flushTimer;
    QElapsedTimer m_elapsed;
    QString m_model;
    QStringList m_files;
    int m_percentage = 0;
    int m_totalPercentage = 0;
    int m_counts[common_IProcessMessage::Variable + 1] = {}; ///< by message type
};
