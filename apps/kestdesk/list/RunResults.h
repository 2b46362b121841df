// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Results of runs that the results viewer can show.
namespace RunResults {

/// The tables over frequency (CSV) among the files that a component has reported, each once, as
/// absolute paths. Relative paths are resolved against the folder. Other tables, such as the steps
/// of an optimisation, are left out.
QStringList tables(const QStringList& files, const QString& folder);

} // namespace RunResults
