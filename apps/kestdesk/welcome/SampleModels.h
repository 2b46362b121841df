// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The sample models of the installation.
namespace SampleModels {

/// The paths of the samples, sorted by name; empty if the installation has none.
QStringList all();

/// Copies a sample into the folder "Kest samples" in the user's documents, because components write
/// beside the model and the installation may be read-only. An existing copy is not changed. Returns
/// the path; on failure an empty one, and the reason in `problem` as a clause.
QString copyOf(const QString& sample, QString& problem);

} // namespace SampleModels
