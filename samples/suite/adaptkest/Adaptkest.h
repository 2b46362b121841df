// SPDX-License-Identifier: MIT
#pragma once

#include "AdaptivePlacing.h"
#include "AnalysisFiles.h"
#include "ComponentProgram.h"
#include "SweepPlan.h"
#include "SweepResults.h"
#include "SweepRunner.h"
#include "WorkFolder.h"

#include <map>
#include <memory>

/// Solves a model in rounds ("analyses"). The frequencies of each follow from the results so far.
class Adaptkest : public suite::ComponentProgram
{
    Q_OBJECT

public:
    Adaptkest();
    ~Adaptkest() override;

protected:
    void work() override;
    bool stopWork() override;

private:
    [[nodiscard]] std::unique_ptr<suite::SweepRunner> makeSweep(const suite::SweepDeck& deck) const;

    bool prepare();
    bool openFolder();
    bool restore();
    bool restart(int last);
    bool resume();
    bool takeOver(int number);
    void reportTakenOver();
    void reportKept();
    void nextAnalysis();
    void startSweep(const QVector<double>& frequencies);
    void takeResult(int index, const suite::EngineOutput& output);
    void endSweep(bool isComplete);
    void take(const QVector<suite::AnalysisPoint>& points);
    void printProgress();
    void writeResults();
    bool writePoints();
    void printFacts();

    [[nodiscard]] double tolerance() const;
    [[nodiscard]] QString folderName() const;

    QString m_engine;
    std::unique_ptr<suite::SweepPlan> m_plan;
    suite::SweepResults m_results;
    std::unique_ptr<suite::WorkFolder> m_folder;
    std::unique_ptr<suite::AnalysisFiles> m_files;
    std::unique_ptr<suite::AdaptivePlacing> m_placing;
    QString m_takeOverError;
    std::unique_ptr<suite::SweepRunner> m_sweep;
    QVector<double> m_frequencies;                   ///< of the running analysis
    QVector<suite::AnalysisPoint> m_round;           ///< results of the running analysis
    std::map<double, suite::AnalysisPoint> m_points; ///< of all completed analyses, by frequency
    int m_analysis = 0;                              ///< the last completed one
};
