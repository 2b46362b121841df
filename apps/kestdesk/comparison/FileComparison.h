#pragma once

#include "RunComparison.h"

class QJsonArray;

/// The part of a comparison of two runs that concerns the files that they have written.
namespace FileComparison {

/// All files of both runs, those of the left one first.
QVector<RunComparison::File> of(const RunRecord& left, const RunRecord& right);

QJsonArray toJson(const QVector<RunComparison::File>& files);

} // namespace FileComparison
