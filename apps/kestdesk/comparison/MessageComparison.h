#pragma once

#include "RunComparison.h"

class QJsonArray;

/// The part of a comparison of two runs that concerns their messages.
namespace MessageComparison {

/// Errors, warnings and notices whose numbers differ, errors first. Adds to the problems what
/// cannot be read.
QVector<RunComparison::Message> of(const RunRecord& left, const RunRecord& right,
                                   QStringList& problems);

QJsonArray toJson(const QVector<RunComparison::Message>& messages);

} // namespace MessageComparison
