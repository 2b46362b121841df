// SPDX-License-Identifier: MIT
#pragma once

#include "RunComparison.h"

class QJsonArray;

/// Compares the messages of two runs.
namespace MessageComparison {

/// The errors, warnings and notices whose counts differ, errors first. Adds a clause to the
/// problems for each record whose messages cannot be read.
QVector<RunComparison::Message> of(const RunRecord& left, const RunRecord& right,
                                   QStringList& problems);

QJsonArray toJson(const QVector<RunComparison::Message>& messages);

} // namespace MessageComparison
