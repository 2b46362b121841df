// SPDX-License-Identifier: MIT
#pragma once

#include "EngineOutput.h"

#include <ResultFiles.h>
#include <ResultTable.h>

namespace suite {

class ModelFile;

/// The files that a sweep writes beside its model: the engine's output, and the table of results.
class SweepResults
{
public:
    /// Opens the files; false if one cannot be written. To be called before the first frequency is
    /// solved, so that hours of work are not lost because a file cannot be written.
    bool open(const ModelFile& model);

    /// Adds the engine's output for the next frequency, in MHz; false if it cannot be written.
    bool add(double frequency, const EngineOutput& output);

    /// Writes the table, and replaces the old files. On failure returns false and sets error().
    bool commit();

    [[nodiscard]] QStringList paths() const { return m_files.paths(); }
    [[nodiscard]] const QVector<ResultPoint>& points() const { return m_table.points; }

    /// Why the last operation failed, with the file's name.
    [[nodiscard]] QString error() const { return m_files.error(); }

private:
    ResultFiles m_files;
    ResultTable m_table;
};

} // namespace suite
