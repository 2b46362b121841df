// SPDX-License-Identifier: MIT
#pragma once

#include "Result.h"

#include <QSize>

class ResultView;

/// Writes charts and results into files, each completely or not at all.
namespace Export {

/// By the file's suffix: png and svg are pictures of the charts, csv is a table of all results.
/// Neither these results, nor others that are open, nor any other run's are overwritten, whichever
/// path leads to them. Returns why the file could not be written; empty when it was.
QString write(const QString& path, ResultView& view, const QVector<Result>& results,
              const QVector<Result>& others = {});

/// The table of all results: the columns of a run's table behind the result's name.
QByteArray table(const QVector<Result>& results);

} // namespace Export
