// SPDX-License-Identifier: MIT
#pragma once

#include "MarkerLine.h"

#include <ChildProcess.h>

namespace suite {

/// A run of another component. Emits its output line by line.
class ComponentRun : public ChildProcess
{
    Q_OBJECT

public:
    explicit ComponentRun(QObject* parent = nullptr);

    /// Starts the component of this installation with that name.
    void startComponent(const QString& name, const QStringList& arguments);

    /// Whether the component has succeeded.
    [[nodiscard]] bool isSuccess() const;

    /// The component's first error, or how it ended if it has printed none, for example after a
    /// crash.
    [[nodiscard]] QString error() const;

Q_SIGNALS:
    /// A line was printed on standard output.
    void printed(const suite::MarkerLine& line);

private:
    void readLines(const QByteArray& bytes);
    void readLine(const QByteArray& bytes);

    QByteArray m_unread; ///< the beginning of a line
    QString m_firstError;
    QByteArray m_errorOutput;
};

} // namespace suite
