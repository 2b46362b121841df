// SPDX-License-Identifier: MIT
#pragma once

#include "WorkFolder.h"

namespace suite {
class ModelFile;
}

/// The folder beside the model with the runs of a refinement: each iteration, and the run of the
/// refined model, has its own subfolder.
class RefinementFolder
{
public:
    explicit RefinementFolder(const suite::ModelFile& model);

    /// Takes the folder, and removes the files of an earlier refinement. On failure returns false
    /// and sets error().
    bool open();
    [[nodiscard]] bool isOpen() const { return m_folder.isOpen(); }

    /// What went wrong, with the folder's name.
    [[nodiscard]] QString error() const { return m_folder.error(); }

    /// The names of the runs. Iterations count from 1.
    static QString iteration(int number);
    static QString finalRun();

    /// Makes the folder of a run, unless it exists. On failure returns false and sets error().
    bool makeFolder(const QString& run) { return m_folder.makeFolder(run); }

    /// The absolute path of a run's model ("nec") or of its results ("out", "csv").
    [[nodiscard]] QString filePath(const QString& run, const QString& suffix) const;

    /// Removes the files of the runs, and nothing else.
    void removeRuns() const;

private:
    [[nodiscard]] QString modelName(const QString& run) const;

    suite::WorkFolder m_folder;
    QString m_model; ///< file name without its suffix
};
