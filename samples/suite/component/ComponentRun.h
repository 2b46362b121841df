#pragma once

#include "ChildProcess.h"
#include "MarkerLine.h"

namespace suite {

/// A run of another component, whose lines are told as they come.
class ComponentRun : public ChildProcess
{
    Q_OBJECT

public:
    explicit ComponentRun(QObject* parent = nullptr);

    /// Starts a component of this installation, which has the given name.
    void startComponent(const QString& name, const QStringList& arguments);

    /// True when the component did all it was asked for.
    [[nodiscard]] bool isSuccess() const;

    /// False when the component crashed or could not be started: then it may not have said why.
    [[nodiscard]] bool hasEndedByItself() const;

    /// What went wrong: its first error, or how it ended.
    [[nodiscard]] QString error() const;

Q_SIGNALS:
    /// A line was printed on standard output.
    void printed(const suite::MarkerLine& line);

    /// The component has ended, or could not be started; all its lines have been told. Told once.
    void done();

private:
    void readLines();
    void endRun();

    QString m_firstError;
    QByteArray m_errorOutput;
    bool m_isDone = false;
};

} // namespace suite
