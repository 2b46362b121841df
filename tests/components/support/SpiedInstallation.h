// SPDX-License-Identifier: MIT
#pragma once

#include "StandIn.h"
#include "SuiteRun.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// A copy of a component beside a runkest that records its arguments before it runs.
class SpiedInstallation
{
public:
    /// The plan of what stands in for runkest; the program that it starts is the real runkest.
    explicit SpiedInstallation(const QString& component, StandIn::Plan plan = StandIn::Plan());

    /// The copy of the component.
    QString program() const { return m_program; }

    /// The arguments of each run of runkest, separated by "|".
    QStringList calledWith() const { return m_runkest->calls(); }

private:
    QTemporaryDir m_folder;
    QString m_program;
    std::unique_ptr<StandIn> m_runkest;
};
