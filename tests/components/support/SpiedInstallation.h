// SPDX-License-Identifier: MIT
#pragma once

#include "SuiteRun.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

/// A copy of a component beside a runkest that records its arguments before it runs.
class SpiedInstallation
{
public:
    /// The script runs after the recording; in it "$RUNKEST" is the real runkest, and it gets the
    /// arguments.
    SpiedInstallation(const QString& component, const QByteArray& script);

    /// The copy of the component.
    QString program() const { return m_program; }

    /// The arguments of each run of runkest, separated by "|".
    QStringList calledWith() const;

private:
    QString calls() const { return m_folder.filePath(QStringLiteral("calls")); }

    QTemporaryDir m_folder;
    QString m_program;
};
