// SPDX-License-Identifier: MIT
#include "ResumedRun.h"

#include "RecordedRun.h"

#include <ModelFile.h>
#include <VisibleText.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ResumedRun)
};

const QString resumeOption = QStringLiteral("--resume");
constexpr int behindTheModel = 1; // which is the first argument, whatever its name

// The only component that can resume a run.
const QString solver = QStringLiteral("runkest");

// A file with the frequencies of a sweep, or a folder with the analyses of an adaptive sampling.
bool isLeft(const RunRecord& record)
{
    const suite::ModelFile model(record.model);
    return QFileInfo(model.resultPath(QStringLiteral("partial"))).isFile() ||
           !QDir(model.resultPath(QStringLiteral("adaptkest"))).isEmpty();
}

QString obstacleOfState(const RunRecord& record)
{
    switch (record.state) {
    case RunRecord::State::Running:
        return Texts::tr("The run is still going on.");
    case RunRecord::State::Valid:
        return Texts::tr("The run has done all of its work.");
    case RunRecord::State::NotStarted:
        return Texts::tr("The run was not started.");
    default:
        return QString();
    }
}

} // namespace

QString ResumedRun::obstacle(const RunRecord& record)
{
    QString ofState = obstacleOfState(record);
    if (!ofState.isEmpty()) {
        return ofState;
    }
    if (record.component != solver || !RecordedRun::hasCommand(record)) {
        return Texts::tr("Runs of %1 cannot be resumed.").arg(suite::visibleText(record.component));
    }
    if (!QFileInfo(record.model).isFile()) {
        return Texts::tr("The model %1 is no longer there.")
            .arg(suite::visibleFileName(record.model));
    }
    const QString file = suite::ModelFile(record.model).resultPath(QStringLiteral("partial"));
    return isLeft(record) ? QString()
                          : Texts::tr("There is no %1 beside the model to continue from.")
                                .arg(suite::visibleFileName(file));
}

RunRecord ResumedRun::of(RunRecord record)
{
    if (!record.arguments.contains(resumeOption)) {
        record.arguments.insert(behindTheModel, resumeOption);
    }
    return record;
}
