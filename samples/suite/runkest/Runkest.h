// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentProgram.h"
#include "ComponentStage.h"
#include "PartialResults.h"
#include "SweepDeck.h"
#include "SweepPlan.h"
#include "SweepResults.h"
#include "SweepRunner.h"

#include <memory>

/// The solver component: pre-processing, the sweep with the engine, the results.
class Runkest : public suite::ComponentProgram
{
    Q_OBJECT

public:
    Runkest();
    ~Runkest() override;

protected:
    void work() override;
    bool stopWork() override;

private:
    void startAdaptive();
    void passOn(const suite::MarkerLine& line);
    void endAdaptive();
    bool prepare();
    void solve();
    void startSweep();
    void keepResult(int index, const suite::EngineOutput& output);
    bool takeOverBefore(int index);
    bool takeResult(const suite::EngineOutput& output);
    void printProgress();
    void endSweep(bool isComplete);
    void writeResults();
    void reportKept();

    suite::SweepResults m_results;
    std::unique_ptr<suite::SweepPlan> m_plan;
    std::unique_ptr<suite::SweepDeck> m_deck;
    std::unique_ptr<suite::PartialResults> m_partial;
    QVector<int> m_missing; ///< what the sweep solves, by its index among all frequencies
    int m_next = 0;         ///< the next frequency of the results
    std::unique_ptr<suite::SweepRunner> m_sweep;
    std::unique_ptr<suite::ComponentStage> m_adaptive;
};
