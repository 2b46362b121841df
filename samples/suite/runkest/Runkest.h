#pragma once

#include "ComponentProgram.h"
#include "ComponentStage.h"
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
    void startSweep();
    void takeResult(int index, const suite::EngineOutput& output);
    void printProgress(int index);
    void endSweep(bool isComplete);
    void writeResults();

    suite::SweepResults m_results;
    std::unique_ptr<suite::SweepPlan> m_plan;
    std::unique_ptr<suite::SweepDeck> m_deck;
    std::unique_ptr<suite::SweepRunner> m_sweep;
    std::unique_ptr<suite::ComponentStage> m_adaptive;
};
