#pragma once

#include <QStringList>

/// What runs leave for the results viewer.
namespace RunResults {

/// The tables over frequency (CSV) among the files that a component has reported, each once, as
/// absolute paths. Relative ones are those of the folder. Components leave other tables as well,
/// such as the steps of an optimisation.
QStringList tables(const QStringList& files, const QString& folder);

} // namespace RunResults
