#pragma once

#include <QProcess>

#include <csignal>

namespace suite {

/// A program that a component starts, in a process group of its own: whatever the program starts
/// can be ended with it, and the program ends when the component is killed.
class ChildProcess : public QProcess
{
    Q_OBJECT

public:
    explicit ChildProcess(QObject* parent = nullptr);

    /// Starts the program; use it in place of QProcess::start().
    void startInGroup(const QString& program, const QStringList& arguments);

    /// The signal that the program gets when the component is killed: SIGKILL unless set.
    void setDeathSignal(int signal) { m_deathSignal = signal; }

    /// Sends a signal to the whole group.
    void signalGroup(int signal) const;

    /// True while any process of the group is there.
    [[nodiscard]] bool isGroupAlive() const;

protected:
    void setupChildProcess() override;

private:
    int m_deathSignal = SIGKILL;
    qint64 m_parent = 0;
    qint64 m_group = 0;
};

} // namespace suite
