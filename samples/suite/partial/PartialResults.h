// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "PartialFile.h"
#include "PartialHeader.h"
#include "SweepDeck.h"

#include <map>
#include <optional>

namespace suite {

class EngineOutput;

/// Keeps each result of a sweep in a file beside the model until the sweep is complete. A run that
/// is stopped, killed or fails leaves the file, and another run only computes the missing results.
class PartialResults
{
public:
    PartialResults(const QString& path, const SweepDeck& deck);

    /// Prepares a run that computes everything. An earlier file stays until the first result; if it
    /// cannot be replaced, no results are kept.
    FindingList begin();

    /// Prepares a run that takes over the results in the file. Returns an error if the file cannot
    /// be used, and does not change it then.
    FindingList resume();

    [[nodiscard]] bool isFrequency(int index) const { return index >= 0 && index < m_deck.count(); }

    /// The indices of the frequencies without results.
    [[nodiscard]] QVector<int> missing() const;

    /// A result that was taken over; nothing if it can no longer be read.
    [[nodiscard]] std::optional<EngineOutput> takenOver(int index) const;

    /// Keeps a result. Returns a finding the first time that a result cannot be written; the run
    /// continues without the file.
    FindingList add(int index, const EngineOutput& output);

    /// The number of results in the file.
    [[nodiscard]] int count() const { return m_count; }

    /// A notice that the file has results; empty if it has none.
    [[nodiscard]] FindingList kept() const;

    /// Removes the file, because the sweep is complete.
    void remove();

    [[nodiscard]] QString path() const { return m_file.path(); }

    /// The name of the file, for messages.
    [[nodiscard]] QString name() const;

private:
    void readRows();
    [[nodiscard]] static QByteArray readHeader(QFile& file);
    [[nodiscard]] QString problemOfFile();
    [[nodiscard]] FindingList notKept(const QString& reason);

    SweepDeck m_deck;
    PartialHeader m_header;
    PartialFile m_file;
    std::map<int, qint64> m_rows; ///< where the line of a result begins, by the frequency's index
    int m_damaged = 0;            ///< number of invalid lines
    int m_count = 0;
    bool m_isContinued = false; ///< the file has a header
    bool m_isKeeping = true;
};

} // namespace suite
