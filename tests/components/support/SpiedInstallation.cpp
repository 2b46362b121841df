// SPDX-License-Identifier: MIT
#include "SpiedInstallation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

SpiedInstallation::SpiedInstallation(const QString& component, StandIn::Plan plan)
{
    const QDir bin(m_folder.filePath(QStringLiteral("bin")));
    bin.mkpath(QStringLiteral("."));
    m_program = bin.filePath(QFileInfo(component).fileName());
    if (!QFileInfo::exists(component)) {
        m_program += QStringLiteral(".exe");
        QFile::copy(component + QStringLiteral(".exe"), m_program);
    } else {
        QFile::copy(component, m_program);
    }
    m_runkest = std::make_unique<StandIn>(bin.path(), QStringLiteral("runkest"));
    plan.program = runkestProgram();
    m_runkest->setPlan(plan);
}
