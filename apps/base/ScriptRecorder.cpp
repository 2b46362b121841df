// SPDX-License-Identifier: MIT
#include "ScriptRecorder.h"

#include <Clause.h>
#include <InputFile.h>
#include <VisibleText.h>
#include <WriteAll.h>

#include <common_ConstantLabeledItem.h>
#include <common_DomainEntity.h>

#include <QFile>

#include <cstdio>
#include <utility>

ScriptRecorder::ScriptRecorder(QString applicationName)
    : m_applicationName(std::move(applicationName)), m_fileName(qEnvironmentVariable("KEST_SCRIPT"))
{}

bool ScriptRecorder::isRecording() const
{
    return !m_fileName.isEmpty();
}

void ScriptRecorder::recordCommand(common_ActivePtr<common_DomainEntity> entity,
                                   const QString& command)
{
    const auto* const item = dynamic_cast<const common_ConstantLabeledItem*>(entity.get());
    const QByteArray line =
        ((item ? item->getLabel().text() : QString()) + command + QLatin1Char('\n')).toUtf8();
    suite::InputFile place(m_fileName);
    QFile file(m_fileName);
    if (!place.checkPlace()) {
        reportError(place.reason()); // a pipe would wait for a reader
    } else if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered) ||
               !suite::writeAll(file, line)) {
        reportError(suite::clause(file.errorString()));
    }
}

void ScriptRecorder::reportError(const QString& reason) const
{
    const QString text = tr("%1: cannot record to %2: %3")
                             .arg(m_applicationName, suite::visiblePath(m_fileName), reason);
    std::fprintf(stderr, "%s\n", qPrintable(text));
}
