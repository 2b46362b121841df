// SPDX-License-Identifier: MIT
#pragma once

#include <ChildProcess.h>

#include <QObject>
#include <QString>
#include <QTimer>

class QHostInfo;

/// Finds out whether processes can be started on a host, and how many cores it has.
class HostCheck : public QObject
{
    Q_OBJECT

public:
    enum class Outcome { Fine, Warning, Error };

    /// The host is an address without brackets, with the total number of its processes. The check
    /// takes no longer than the limit, and is cancelled when the object is destroyed.
    HostCheck(QString host, int processes, int limitSeconds);

    void start();

    bool isDone() const { return m_done; }
    Outcome outcome() const { return m_outcome; }

    /// The result in one line.
    QString text() const { return m_text; }

    /// Whether the name is still being looked up, which cannot be interrupted.
    bool isLookingUp() const { return m_lookingUp; }

    /// Whether the host is this machine, which is checked without the network.
    static bool isThisMachine(const QString& host);

    /// The program that connects to hosts: KEST_SSH, or ssh. Empty if it is not installed.
    static QString remoteShell();

Q_SIGNALS:
    void finished();

private:
    void onLookedUp(const QHostInfo& info);
    void ask();
    void onAnswerPart();
    void onAnswered();
    void onTimeout();
    void compare(int cores);
    void fail(const QString& reason);
    void finish(Outcome outcome, const QString& text);

    QString m_host;
    int m_processes;
    int m_limit; ///< seconds
    QTimer m_timer;
    ChildProcess m_process;
    QByteArray m_answer;
    QByteArray m_errorOutput;
    bool m_lookingUp = false;
    bool m_done = false;
    Outcome m_outcome = Outcome::Error;
    QString m_text;
};
