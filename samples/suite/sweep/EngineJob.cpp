// SPDX-License-Identifier: MIT
#include "EngineJob.h"

#include "EngineOutput.h"

#include <Clause.h>
#include <InputFile.h>
#include <TemporaryFolder.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace suite {

namespace {

constexpr qint64 largestOutput = 256 << 20;

} // namespace

EngineJob::EngineJob(QString engine, const QString& folder, int number)
    : m_engine(std::move(engine)), m_number(number)
{
    setWorkingDirectory(folder);
    connect(this, &ChildProcess::ended, this, &EngineJob::end);
}

void EngineJob::solve(const QByteArray& deck)
{
    const QString path = filePath(QStringLiteral("nec"));
    m_error = TemporaryFolder::writeFile(path, deck);
    if (!m_error.isEmpty()) {
        QMetaObject::invokeMethod(this, &EngineJob::end, Qt::QueuedConnection);
        return;
    }
    startEngine(m_engine, QFileInfo(path).fileName(),
                QFileInfo(filePath(QStringLiteral("out"))).fileName());
}

void EngineJob::end()
{
    if (m_error.isEmpty()) {
        if (!startError().isEmpty()) {
            m_error = QStringLiteral("the engine '%1' cannot be started, %2")
                          .arg(m_engine, clause(startError()));
        } else {
            readOutput();
        }
    }
    Q_EMIT done();
}

void EngineJob::readOutput()
{
    InputFile file(filePath(QStringLiteral("out")));
    m_output = file.read(largestOutput).value_or(QByteArray());
    if (file.problem() == InputFile::Problem::Missing) {
        m_error = QStringLiteral("the engine wrote no output");
    } else if (file.problem() != InputFile::Problem::None) {
        m_error = QStringLiteral("the engine's output cannot be read, ") + file.reason();
    }
    const QString exitProblem = exitError();
    if (!exitProblem.isEmpty()) {
        m_error = exitProblem;
    }
    // An engine that cannot write ends in many ways, none of which names the reason.
    const bool isSuspect = !m_error.isEmpty() || !EngineOutput(m_output).hasImpedance();
    const QString folderProblem =
        isSuspect ? TemporaryFolder::writeProblem(workingDirectory()) : QString();
    if (!folderProblem.isEmpty()) {
        m_error = folderProblem;
    }
    QFile::remove(filePath(QStringLiteral("out")));
    QFile::remove(filePath(QStringLiteral("nec")));
}

// The error of the engine's exit; empty if it ended well.
QString EngineJob::exitError() const
{
    QString how;
    if (!hasExited()) {
        how = QStringLiteral("the engine crashed");
    } else if (exitCode() != 0) {
        how = QStringLiteral("the engine ended with code %1").arg(exitCode());
    } else {
        return {};
    }
    QStringList parts = {how};
    parts += EngineOutput(m_output).errorLines();
    if (!printedText().isEmpty()) {
        parts += printedText();
    }
    return parts.join(QStringLiteral(", "));
}

QString EngineJob::filePath(const QString& suffix) const
{
    return QDir(workingDirectory())
        .filePath(QStringLiteral("f%1.%2").arg(m_number + 1).arg(suffix));
}

} // namespace suite
