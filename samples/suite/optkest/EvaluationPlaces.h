#pragma once

#include "CommandLine.h"
#include "Finding.h"

/// Where evaluations run, as the options say: on the hosts of a machines file, on each as often as
/// it takes evaluations, or on this machine.
class EvaluationPlaces
{
public:
    /// Reads the options of optkest, and the machines file that they name.
    explicit EvaluationPlaces(const suite::CommandLine& line);

    /// Errors and warnings for the user; after an error there are no places to use.
    [[nodiscard]] const suite::FindingList& findings() const { return m_findings; }

    /// A host's name for each place.
    [[nodiscard]] const QStringList& hosts() const { return m_hosts; }

private:
    void readMachinesFile(const QString& path, const QString& wanted);
    void takeThisMachine(const QString& wanted);

    suite::FindingList m_findings;
    QStringList m_hosts;
};
