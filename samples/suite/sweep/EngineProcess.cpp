// SPDX-License-Identifier: MIT
#include "EngineProcess.h"

namespace suite {

namespace {

constexpr int mostPrintedBytes = 4096;

} // namespace

EngineProcess::EngineProcess(QObject* parent) : ChildProcess(parent)
{
    setErrors(Errors::WithOutput);
    connect(this, &ChildProcess::outputRead, this, [this](const QByteArray& bytes) {
        m_printed += bytes.left(mostPrintedBytes - m_printed.size());
    });
}

void EngineProcess::startEngine(const QString& program, const QString& deckFile,
                                const QString& outputFile)
{
    start(program, {QStringLiteral("-i"), deckFile, QStringLiteral("-o"), outputFile});
}

void EngineProcess::setPriority(Priority priority)
{
    if (const std::optional<int> niceValue = priority.niceValue()) {
        setNiceValue(*niceValue);
    }
}

QString EngineProcess::printedText() const
{
    return QString::fromUtf8(m_printed).simplified();
}

} // namespace suite
