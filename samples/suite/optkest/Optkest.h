// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentProgram.h"
#include "EvaluationFarm.h"
#include "RunFolder.h"
#include "TunedModel.h"
#include "TuningSearch.h"

#include <memory>

namespace suite {
class ResultFiles;
}

/// The optimiser: minimises the reactance by tuning a named value of the model. Each evaluation is
/// a run of the solver in its own folder.
class Optkest : public suite::ComponentProgram
{
    Q_OBJECT

public:
    Optkest();
    ~Optkest() override;

protected:
    void work() override;
    bool stopWork() override;

private:
    bool prepare();
    bool checkModel();
    bool makeFarm();
    bool openFolder();
    bool checkResults();
    bool makeSearch();

    void advance();
    bool startRound();
    void takeRun(int run, const QString& host);
    void takeResult(int run, const QString& host, const suite::Impedance& impedance);
    void endRound();
    void failRun(int run, const QString& host, const QString& reason);
    void printKnown(const QVector<Evaluation>& evaluations);
    void printFinalProgress(int run, int percentage);

    void startFinalRun();
    void finishFinalRun();
    bool writeResults(suite::ResultFiles& results);
    void giveUp(suite::FindingKind kind, const QString& reason);
    void endWork();

    [[nodiscard]] QStringList resultPaths() const;
    [[nodiscard]] OptimisationState question() const;

    std::unique_ptr<TunedModel> m_model;
    std::unique_ptr<RunFolder> m_folder;
    std::unique_ptr<EvaluationFarm> m_farm;
    std::unique_ptr<TuningSearch> m_search;
    int m_keptEvaluations = 0; ///< that --restart can take over
    int m_failedRun = -1;
};
