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

    /// The host, an address without brackets, with all the processes that it asks for. The check
    /// takes no longer than the limit, and is cancelled when the object is destroyed.
    HostCheck(QString host, int processes, int limitSeconds);

    void start();

    bool isDone() const { return m_done; }
    Outcome outcome() const { return m_outcome; }

    /// What was found out, in one line.
    QString text() const { return m_text; }

    /// Whether the look-up of the name still runs. It cannot be interrupted.
    bool isLookingUp() const { return m_lookingUp; }

    /// Whether it is this machine, which needs no query over the network.
    static bool isThisMachine(const QString& host);

    /// The program that reaches hosts: KEST_SSH, or ssh. Empty when there is no such program.
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
