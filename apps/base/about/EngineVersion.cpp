// SPDX-License-Identifier: MIT
#include "EngineVersion.h"

#include <VisibleText.h>

#include <QStandardPaths>
#include <QTimer>

namespace {

constexpr int patience = 2000;     // milliseconds
constexpr int longestAnswer = 100; // characters
constexpr int killedWithin = 1000; // milliseconds

QString chosenProgram()
{
    const QString chosen = qEnvironmentVariable("KEST_NEC2C");
    return chosen.isEmpty() ? QStringLiteral("nec2c") : chosen;
}

} // namespace

EngineVersion::EngineVersion()
{
    connect(&m_process, &QProcess::errorOccurred, this, &EngineVersion::read);
    connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            &EngineVersion::read);
}

EngineVersion::~EngineVersion()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished(killedWithin);
}

void EngineVersion::start()
{
    m_program = QStandardPaths::findExecutable(chosenProgram());
    if (m_program.isEmpty()) {
        setText(tr("%1 is not in the search path").arg(chosenProgram()));
        return;
    }
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.start(m_program, {QStringLiteral("-v")}, QIODevice::ReadOnly);
    QTimer::singleShot(patience, &m_process, &QProcess::kill);
}

QString EngineVersion::ask()
{
    EngineVersion version;
    version.start();
    if (version.text().isEmpty() && !version.m_process.waitForFinished(patience)) {
        version.read();
    }
    return version.text();
}

void EngineVersion::read()
{
    const QString line = QString::fromLocal8Bit(m_process.readAllStandardOutput())
                             .section(QLatin1Char('\n'), 0, 0)
                             .trimmed()
                             .left(longestAnswer);
    setText(QStringLiteral("%1 (%2)").arg(line.isEmpty() ? tr("unknown version")
                                                         : suite::visibleText(line),
                                          suite::visiblePath(m_program)));
}

void EngineVersion::setText(const QString& text)
{
    if (m_text.isEmpty()) {
        m_text = text;
        Q_EMIT found();
    }
}
