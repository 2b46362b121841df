// SPDX-License-Identifier: MIT
#pragma once

#include "RunComparison.h"

class QJsonArray;

/// Compares the files that two runs have written.
namespace FileComparison {

/// All files of both runs, those of the left one first. Waits for the disk.
QVector<RunComparison::File> of(const RunRecord& left, const RunRecord& right);

QJsonArray toJson(const QVector<RunComparison::File>& files);

} // namespace FileComparison
