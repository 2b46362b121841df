#pragma once

#include "MarkerLine.h"

#include <ChildProcess.h>

namespace suite {

/// A run of another component, whose lines are signalled as they come.
class ComponentRun : public ChildProcess
{
    Q_OBJECT

public:
    explicit ComponentRun(QObject* parent = nullptr);

    /// Starts a component of this installation, which has the given name.
    void startComponent(const QString& name, const QStringList& arguments);

    /// True when the component did all it was asked for.
    [[nodiscard]] bool isSuccess() const;

    /// What went wrong: its first error, or how it ended. A component that crashed or could not be
    /// started may not have said why.
    [[nodiscard]] QString error() const;

Q_SIGNALS:
    /// A line was printed on standard output.
    void printed(const suite::MarkerLine& line);

private:
    void readLines(const QByteArray& bytes);
    void readLine(const QByteArray& bytes);

    QByteArray m_unread; ///< the begin of a line
    QString m_firstError;
    QByteArray m_errorOutput;
};

} // namespace suite
