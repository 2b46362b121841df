#pragma once

#include "EngineOutput.h"

#include <ResultFiles.h>
#include <ResultTable.h>

namespace suite {

class ModelFile;

/// What a sweep leaves beside its model: what the engine wrote, and the table of results.
class SweepResults
{
public:
    /// Opens the files; false when one cannot be written. To be called before the first frequency
    /// is solved, so that hours of work end in a file that can be written.
    bool open(const ModelFile& model);

    /// Adds the next frequency, in MHz, and what the engine wrote for it; false when it cannot be
    /// written.
    bool add(double frequency, const EngineOutput& output);

    /// Writes the table, and puts the new files in place of the old ones.
    bool commit();

    [[nodiscard]] QStringList paths() const { return m_files.paths(); }
    [[nodiscard]] const QVector<ResultPoint>& points() const { return m_table.points; }

    /// What went wrong, with the file's name.
    [[nodiscard]] QString error() const { return m_files.error(); }

private:
    ResultFiles m_files;
    ResultTable m_table;
};

} // namespace suite
