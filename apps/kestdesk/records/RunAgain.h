// SPDX-License-Identifier: MIT
#pragma once

#include "DiskThread.h"
#include "RecordedRun.h"
#include "RunArchive.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

/// Prepares the repetition of a recorded run: reads the record and, if the model has changed since,
/// asks the user which version to run.
class RunAgain : public QObject
{
    Q_OBJECT

public:
    /// The window is the parent of questions.
    RunAgain(RunArchive archive, QWidget* window);

    /// As it was.
    void request(int number);

    /// As it was, but without a host of its machines file; the user is asked.
    void requestWithout(int number, const QString& host);

    /// With what the run has left, and with the model as it is.
    void resume(int number);

Q_SIGNALS:
    /// The run can be set up, with that model's path.
    void ready(const RunRecord& record, const QString& model);

    /// The same for a run that is resumed.
    void readyToResume(const RunRecord& record);

    /// The host stays: the user wants to edit the file, or the host cannot be left out. The problem
    /// is a sentence and may be empty.
    void hostNotLeftOut(const RunRecord& record, const QString& host, const QString& problem);

    /// The run cannot be repeated. The problem is a sentence.
    void failed(const QString& problem);

private:
    using ModelState = RecordedRun::ModelState;

    void failWithoutRecord(int number);
    void leaveOut(const RunRecord& record, const QString& host, const QStringList& lines);
    void prepare(const RunRecord& record);
    void decide(const RunRecord& record, ModelState state, bool hasCopy);
    void writeModel(const RunRecord& record);

    RunArchive m_archive;
    QWidget* m_window;
    DiskThread m_disk;
};
