// SPDX-License-Identifier: MIT
#pragma once

#include "CommandLine.h"
#include "Finding.h"

/// The places for evaluations according to the options: on the hosts of a machines file, several on
/// a host if it takes several evaluations, or on this machine.
class EvaluationPlaces
{
public:
    /// Reads the options of optkest, and the machines file that they name.
    explicit EvaluationPlaces(const suite::CommandLine& line);

    /// Errors and warnings for the user. After an error there are no places.
    [[nodiscard]] const suite::FindingList& findings() const { return m_findings; }

    /// A host's name for each place.
    [[nodiscard]] const QStringList& hosts() const { return m_hosts; }

private:
    void readMachinesFile(const QString& path, const QString& wanted);
    void takeThisMachine(const QString& wanted);

    suite::FindingList m_findings;
    QStringList m_hosts;
};
