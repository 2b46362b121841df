#pragma once

#include "ProblemCures.h"
#include "RunArchive.h"

#include <QObject>

class QWidget;

/// The windows of recorded runs, of which each has one at most, and what their buttons do.
class RecordWindows : public QObject
{
    Q_OBJECT

public:
    /// They belong to the window.
    RecordWindows(RunArchive archive, QWidget* window);

    /// Brings the window of that run to the front, and makes it if need be.
    void open(int number);

    /// Does what the cure says.
    void cure(const ProblemCures::Cure& cure, const QString& message, const RunRecord& record);

Q_SIGNALS:
    void againRequested(int number);
    void resumeRequested(int number);

    /// A sentence for the status line.
    void reported(const QString& text);

private:
    void openCard(const QString& message, const RunRecord& record);
    void useThisMachine();
    void showInstallation();

    RunArchive m_archive;
    QWidget* m_window;
};
