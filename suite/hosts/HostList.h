// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace suite {

/// A list of hosts in the notation of Slurm, "node[01-03,07],gpu1", with all names in full.
///
/// A name may have several pairs of brackets: "rack[1-2]n[1-3]" is six hosts, and the last pair
/// varies fastest. A number is padded with zeros to the width of the first number of its range.
struct HostList
{
    QStringList hosts; ///< in the order of the list; empty when there is an error
    QString error;     ///< what is wrong, as part of a sentence; empty when nothing is

    static constexpr int mostHosts = 4096;  ///< more are an error
    static constexpr int longestShown = 40; ///< characters of an invalid part that an error shows

    static HostList parse(const QString& text);
};

} // namespace suite
