// SPDX-License-Identifier: MIT
#include "ComponentRun.h"

#include <Clause.h>

#include <QCoreApplication>

namespace suite {

namespace {

constexpr int mostErrorOutput = 4096; // bytes

} // namespace

ComponentRun::ComponentRun(QObject* parent) : ChildProcess(parent)
{
    connect(this, &ChildProcess::outputRead, this, &ComponentRun::readLines);
    connect(this, &ChildProcess::errorsRead, this, [this](const QByteArray& bytes) {
        m_errorOutput += bytes.left(mostErrorOutput - m_errorOutput.size());
    });
}

void ComponentRun::startComponent(const QString& name, const QStringList& arguments)
{
    start(QCoreApplication::applicationDirPath() + QLatin1Char('/') + name, arguments);
}

bool ComponentRun::isSuccess() const
{
    return hasExited() && exitCode() == 0;
}

QString ComponentRun::error() const
{
    if (!m_firstError.isEmpty()) {
        return m_firstError;
    }
    if (!startError().isEmpty()) {
        return QStringLiteral("'%1' cannot be started, %2").arg(program(), clause(startError()));
    }
    const QString how =
        hasExited() ? QStringLiteral("'%1' ended with code %2").arg(program()).arg(exitCode())
                    : QStringLiteral("'%1' crashed").arg(program());
    const QString said = QString::fromUtf8(m_errorOutput).simplified();
    return said.isEmpty() ? how : how + QStringLiteral(", ") + said;
}

void ComponentRun::readLines(const QByteArray& bytes)
{
    m_unread += bytes;
    int start = 0;
    for (int end = m_unread.indexOf('\n'); end >= 0; end = m_unread.indexOf('\n', start)) {
        const bool endsAsOnWindows = end > start && m_unread.at(end - 1) == '\r';
        readLine(m_unread.mid(start, end - start - (endsAsOnWindows ? 1 : 0)));
        start = end + 1;
    }
    m_unread.remove(0, start);
}

void ComponentRun::readLine(const QByteArray& bytes)
{
    const MarkerLine line = MarkerLine::parse(bytes);
    if (line.marker == Marker::Error && m_firstError.isEmpty()) {
        m_firstError = line.body;
    }
    Q_EMIT printed(line);
}

} // namespace suite
