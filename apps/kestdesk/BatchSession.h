#ifndef BATCHSESSION_H
#define BATCHSESSION_H

#include "BatchReport.h"

#include <QObject>
#include <QStringList>
#include <QVector>

#include <memory>

class BatchRun;

/// Runs a component on one model after the other, until all are done or the user stops it.
class BatchSession : public QObject
{
    Q_OBJECT

public:
    BatchSession(QString component, QStringList models);
    ~BatchSession() override;

    /// The application's exit code: 0 all valid, 1 a fault, 2 a start that failed, 130 stopped.
    int exec();

private:
    void runNext();
    void onRunFinished(Outcome outcome);
    void onStopRequested();
    int exitCode() const;

    QString m_component;
    QStringList m_models;
    QVector<Outcome> m_outcomes;
    BatchReport m_report;
    std::unique_ptr<BatchRun> m_run;
    bool m_stopRequested = false;
};

#endif
