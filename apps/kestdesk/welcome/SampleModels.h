#pragma once

#include <QString>
#include <QStringList>

/// The models that come with the installation, to try the suite with.
namespace SampleModels {

/// Their files, by name; empty where the installation has none.
QStringList all();

/// A copy of the sample for the user, since components write beside a model and an installation is
/// not the user's: in the folder "Kest samples" among the user's documents. A copy that is there
/// stays as it is. Empty when there can be none; then the problem is a clause.
QString copyOf(const QString& sample, QString& problem);

} // namespace SampleModels
