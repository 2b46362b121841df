// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

class LaunchChoice;
class RunPanel;
class RunQueue;

/// Opens models that the user chooses, drops or names on the command line: one becomes the model to
/// run, several are added to the queue.
class ModelOpener : public QObject
{
    Q_OBJECT

public:
    /// The panel gives component and options. Its window is the parent of messages. The arguments
    /// must outlive this object.
    ModelOpener(RunPanel* panel, const LaunchChoice* choice, RunQueue& queue);

    /// Opens one model. If the file cannot be opened, shows an error with the hint, which may be
    /// empty.
    void open(const QString& path, const QString& hint = QString());

    /// Opens the first of the models. If there are several, adds all of them to the queue, held.
    /// Skips the models that cannot be opened and shows an error with the hint, which may be empty.
    void open(const QStringList& paths, const QString& hint = QString());

    /// Lets the user choose models in a file dialog and opens them.
    void choose();

    /// Appends a model to the queue.
    void queue(const QString& path, bool isHeld);

Q_SIGNALS:
    /// The model to run has been opened; its absolute path.
    void opened(const QString& path);

    /// A sentence for the user.
    void reported(const QString& text);

private:
    QStringList readableOnes(const QStringList& paths);
    void showProblem(const QString& text);

    RunPanel* m_panel;
    const LaunchChoice* m_choice;
    RunQueue& m_queue;
};
