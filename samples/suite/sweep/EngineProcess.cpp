#include "EngineProcess.h"

namespace suite {

namespace {

constexpr int mostPrintedBytes = 4096;

} // namespace

EngineProcess::EngineProcess(QObject* parent) : ChildProcess(parent)
{
    setProcessChannelMode(QProcess::MergedChannels);
    setStandardInputFile(QProcess::nullDevice());
    connect(this, &QProcess::readyReadStandardOutput, this, &EngineProcess::drain);
}

void EngineProcess::startEngine(const QString& program, const QString& deckFile,
                                const QString& outputFile)
{
    startInGroup(program, {QStringLiteral("-i"), deckFile, QStringLiteral("-o"), outputFile});
}

QString EngineProcess::printedText() const
{
    return QString::fromUtf8(m_printed).simplified();
}

// Runs in the child: only calls that are safe between fork and exec.
void EngineProcess::setupChildProcess()
{
    ChildProcess::setupChildProcess();
    m_priority.apply();
}

void EngineProcess::drain()
{
    const QByteArray bytes = readAllStandardOutput();
    m_printed += bytes.left(mostPrintedBytes - m_printed.size());
}

} // namespace suite
