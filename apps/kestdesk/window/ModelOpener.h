#pragma once

#include <QObject>
#include <QStringList>

class LaunchChoice;
class RunPanel;
class RunQueue;

/// Opens models as the user chooses, drops or names them: one becomes the model to run, several
/// wait in the queue.
class ModelOpener : public QObject
{
    Q_OBJECT

public:
    /// The panel says what to run the models with. Its window is the parent of messages. All must
    /// outlive this.
    ModelOpener(RunPanel* panel, const LaunchChoice* choice, RunQueue& queue);

    /// One model. Shows an error when there is no such file, with the hint, which may be empty.
    void open(const QString& path, const QString& hint = QString());

    /// The first of the models. Where there are several, all of them wait in the queue, held. Those
    /// that cannot be opened are shown, with the hint, and left out.
    void open(const QStringList& paths, const QString& hint = QString());

    /// Those that the user chooses in a dialog.
    void choose();

    /// Puts a model at the end of the queue.
    void queue(const QString& path, bool isHeld);

Q_SIGNALS:
    /// This is the model to run; its absolute path.
    void opened(const QString& path);

    /// Something that the user should know of, as a sentence.
    void reported(const QString& text);

private:
    QStringList readableOnes(const QStringList& paths);
    void showProblem(const QString& text);

    RunPanel* m_panel;
    const LaunchChoice* m_choice;
    RunQueue& m_queue;
};
