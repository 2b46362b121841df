// SPDX-License-Identifier: MIT
#pragma once

#include "WorkFolder.h"

/// The folder beside the model with the runs of an optimisation, each in its own subfolder, and the
/// state of the optimisation.
class RunFolder
{
public:
    /// The number of the last run, that of the tuned model.
    static constexpr int finalRun = 0;

    explicit RunFolder(const QString& path);

    /// Makes and locks the folder. Returns an error text on failure.
    [[nodiscard]] QString open();

    [[nodiscard]] QString statePath() const;

    /// The absolute path of a file of a run, by its suffix: "nec", "out" or "csv".
    [[nodiscard]] QString filePath(int run, const QString& suffix) const;

    /// Makes the folder of a run, removes the files of an earlier one, and writes the deck. Returns
    /// an error text on failure.
    [[nodiscard]] QString prepareRun(int run, const QByteArray& deck);

    void removeRun(int run);

    /// Removes all runs with higher numbers, and for 0 the state, too.
    void removeRunsBehind(int run);

private:
    suite::WorkFolder m_folder;
};
