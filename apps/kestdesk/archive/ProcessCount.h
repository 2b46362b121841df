#pragma once

#include <QStringList>

/// How many processes of a component solve a model at once, as far as its arguments say.
namespace ProcessCount {

/// The machines file counts when all are wanted; its path may be empty. Reads it. 1 when nothing is
/// said.
int of(const QStringList& arguments, const QString& machinesFile);

} // namespace ProcessCount
