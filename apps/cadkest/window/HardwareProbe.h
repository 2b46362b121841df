// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

class QProcess;

/// Tries hardware rendering in a process of its own: a driver that crashes or never answers does so
/// there, and the window keeps working.
class HardwareProbe : public QObject
{
    Q_OBJECT

public:
    /// The program is cadkest, which knows what to do with the option that it is started with.
    explicit HardwareProbe(QString program);
    ~HardwareProbe() override;

    /// How long a driver may take; 20,000 by default.
    void setPatience(int milliseconds) { m_patience.setInterval(milliseconds); }

    /// Tries it. While it is being tried already, this does nothing.
    void start();

    /// Ends the trial without an answer.
    void cancel();

    [[nodiscard]] bool isRunning() const { return m_process != nullptr; }

Q_SIGNALS:
    /// Why hardware rendering is not available; empty when it works.
    void answered(const QString& error);

private:
    void end();
    void finish(const QString& error);

    QString m_program;
    QTimer m_patience;
    std::unique_ptr<QProcess> m_process;
};
