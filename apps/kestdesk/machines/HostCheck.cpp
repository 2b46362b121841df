// SPDX-License-Identifier: MIT
#include "HostCheck.h"

#include "RunTexts.h"

#include <Clause.h>
#include <RemoteShell.h>

#include <QFileInfo>
#include <QHostAddress>
#include <QHostInfo>
#include <QStandardPaths>
#include <QThread>

#include <utility>

namespace {

constexpr int longestAnswer = 65536; // bytes; what comes after is of no interest
constexpr int longestLine = 120;

QString lastLine(const QByteArray& output)
{
    const QByteArray text = output.trimmed();
    return QString::fromUtf8(text.mid(text.lastIndexOf('\n') + 1)).left(longestLine);
}

} // namespace

HostCheck::HostCheck(QString host, int processes, int limitSeconds)
    : m_host(std::move(host)), m_processes(processes), m_limit(limitSeconds)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &HostCheck::onTimeout);
    m_process.setTerminal(ChildProcess::Terminal::None);
    connect(&m_process, &ChildProcess::outputRead, this, [this](const QByteArray& bytes) {
        m_answer += bytes;
        onAnswerPart();
    });
    connect(&m_process, &ChildProcess::errorsRead, this, [this](const QByteArray& bytes) {
        m_errorOutput += bytes;
        onAnswerPart();
    });
    connect(&m_process, &ChildProcess::ended, this, &HostCheck::onAnswered);
}

// Addresses are not looked up: that would query the name of the address.
void HostCheck::start()
{
    m_timer.start(m_limit * 1000);
    if (isThisMachine(m_host)) {
        compare(QThread::idealThreadCount());
    } else if (QHostAddress(m_host).isNull()) {
        m_lookingUp = true;
        QHostInfo::lookupHost(m_host, this, &HostCheck::onLookedUp);
    } else {
        ask();
    }
}

bool HostCheck::isThisMachine(const QString& host)
{
    const QString name = host.toLower();
    const QString own = QHostInfo::localHostName().toLower();
    const QString domain = QHostInfo::localDomainName().toLower();
    return name == QLatin1String("localhost") || name == QLatin1String("127.0.0.1") ||
           name == QLatin1String("::1") || name == own ||
           (!domain.isEmpty() && name == own + QLatin1Char('.') + domain);
}

QString HostCheck::remoteShell()
{
    const QString program = suite::RemoteShell::program();
    const QFileInfo file(program);
    if (program.contains(QLatin1Char('/'))) {
        return file.isFile() && file.isExecutable() ? file.absoluteFilePath() : QString();
    }
    return QStandardPaths::findExecutable(program);
}

void HostCheck::onLookedUp(const QHostInfo& info)
{
    m_lookingUp = false;
    if (m_done) {
        return;
    }
    if (info.error() == QHostInfo::NoError) {
        ask();
    } else {
        fail(tr("the name does not resolve: %1").arg(suite::clause(info.errorString())));
    }
}

void HostCheck::ask()
{
    m_process.start(remoteShell(),
                    {QStringLiteral("-o"), QStringLiteral("BatchMode=yes"), QStringLiteral("-o"),
                     QStringLiteral("ConnectTimeout=%1").arg(m_limit), QStringLiteral("--"), m_host,
                     QStringLiteral("getconf"), QStringLiteral("_NPROCESSORS_ONLN")});
}

void HostCheck::onAnswerPart()
{
    if (m_answer.size() + m_errorOutput.size() > longestAnswer && !m_done) {
        fail(tr("answers without end"));
    }
}

void HostCheck::onAnswered()
{
    if (m_done) {
        return;
    }
    const QString lastError = lastLine(m_errorOutput);
    if (!m_process.startError().isEmpty()) {
        fail(tr("cannot start %1: %2")
                 .arg(m_process.program(), suite::clause(m_process.startError())));
    } else if (!m_process.hasExited()) {
        fail(tr("%1 crashed").arg(m_process.program()));
    } else if (m_process.exitCode() != 0) {
        fail(lastError.isEmpty() ? tr("%1 ended with exit code %2")
                                       .arg(m_process.program())
                                       .arg(m_process.exitCode())
                                 : lastError);
    } else {
        compare(lastLine(m_answer).toInt());
    }
}

void HostCheck::onTimeout()
{
    if (!m_done) {
        const QString limit = RunTexts::counted(m_limit, "second");
        fail(m_lookingUp ? tr("the name does not resolve within %1").arg(limit)
                         : tr("no answer within %1").arg(limit));
    }
}

void HostCheck::compare(int cores)
{
    if (cores < 1) {
        fail(tr("answers \"%1\" in place of the number of its cores").arg(lastLine(m_answer)));
        return;
    }
    const QString text =
        tr("%1 for %2")
            .arg(RunTexts::counted(cores, "core"), RunTexts::counted(m_processes, "process"));
    finish(cores < m_processes ? Outcome::Warning : Outcome::Fine, text);
}

void HostCheck::fail(const QString& reason)
{
    finish(Outcome::Error, reason);
}

void HostCheck::finish(Outcome outcome, const QString& text)
{
    m_done = true;
    m_timer.stop();
    m_outcome = outcome;
    m_text = text;
    if (m_process.isRunning()) {
        m_process.killGroup();
    }
    Q_EMIT finished();
}
