// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentProgram.h"
#include "ComponentStage.h"
#include "RefinementFolder.h"
#include "RefinementHistory.h"
#include "SegmentRefinement.h"

#include <ResultFiles.h>

#include <memory>

/// Refines a model's segments step by step; each step is a run of runkest at one frequency.
class Amrkest : public suite::ComponentProgram
{
    Q_OBJECT

public:
    Amrkest();
    ~Amrkest() override;

protected:
    void work() override;
    bool stopWork() override;

private:
    using Slot = void (Amrkest::*)();

    bool prepare();
    bool openFolder();
    bool openResults();
    void startIteration();
    void endIteration();
    bool readIteration();
    void endRefinement();
    void startFinalRun();
    void printAgain(const suite::MarkerLine& line);
    void endFinalRun();
    void writeResults();

    void startRun(const QString& run, const QByteArray& deck, Slot ended);
    bool writeModel(const QString& run, const QByteArray& deck);
    [[nodiscard]] QStringList runkestArguments(const QString& model) const;
    [[nodiscard]] QByteArray refinedDeck() const;
    [[nodiscard]] int mostIterations() const;
    [[nodiscard]] double threshold() const;
    void printTotal(int percentage);

    std::unique_ptr<suite::SegmentRefinement> m_refinement;
    std::unique_ptr<RefinementHistory> m_history;
    std::unique_ptr<RefinementFolder> m_folder;
    std::unique_ptr<suite::ComponentStage> m_stage;
    suite::ResultFiles m_results;
    suite::FindingList m_conclusion;
    double m_frequency = 0; ///< of the iterations, in MHz
    int m_total = 0;
};
