#include "ScriptRecorder.h"

#include <VisibleText.h>

#include <common_ConstantLabeledItem.h>
#include <common_DomainEntity.h>

#include <QFile>
#include <QFileInfo>

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
    const QFileInfo info(m_fileName);
    QFile file(m_fileName);
    if (info.exists() && !info.isFile()) {
        complain(QStringLiteral("it is not a regular file")); // a pipe would wait for a reader
    } else if (!file.open(QIODevice::WriteOnly | QIODevice::Append) ||
               file.write(line) != line.size() || !file.flush()) {
        complain(file.errorString());
    }
}

void ScriptRecorder::complain(const QString& reason) const
{
    std::fprintf(stderr, "%s: cannot record to %s: %s\n", qPrintable(m_applicationName),
                 qPrintable(suite::visiblePath(m_fileName)), qPrintable(reason));
}
