#pragma once

#include "Finding.h"
#include "PartialFile.h"
#include "PartialHeader.h"
#include "SweepDeck.h"

#include <map>
#include <optional>

namespace suite {

class EngineOutput;

/// Keeps each result of a sweep in a file beside the model from the moment that it is there, until
/// the sweep is complete. A run that is stopped, killed or fails leaves the file, and another one
/// computes only what is missing in it.
class PartialResults
{
public:
    PartialResults(const QString& path, const SweepDeck& deck);

    /// Prepares a run that computes everything. An earlier file stays until the first result is
    /// there; where it cannot be replaced, nothing is kept.
    FindingList begin();

    /// Prepares a run that takes over what the file holds. An error when the file cannot be used;
    /// it stays as it is.
    FindingList resume();

    [[nodiscard]] bool isFrequency(int index) const { return index >= 0 && index < m_deck.count(); }

    /// The frequencies whose results are not there, by their indices in the sweep.
    [[nodiscard]] QVector<int> missing() const;

    /// A result that was taken over. Nothing when it cannot be read any more.
    [[nodiscard]] std::optional<EngineOutput> takenOver(int index) const;

    /// Keeps a result. What cannot be written is found once; the run continues without the file.
    FindingList add(int index, const EngineOutput& output);

    /// How many results the file holds.
    [[nodiscard]] int count() const { return m_count; }

    /// That the file holds results, for the user; empty when it holds none.
    [[nodiscard]] FindingList kept() const;

    /// The sweep is complete.
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
    int m_damaged = 0;            ///< lines that are no rows
    int m_count = 0;
    bool m_isContinued = false; ///< the file has a header
    bool m_isKeeping = true;
};

} // namespace suite
