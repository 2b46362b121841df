#pragma once

#include "ComponentProgram.h"
#include "EvaluationFarm.h"
#include "OptimisationState.h"
#include "RunFolder.h"
#include "SectionSearch.h"
#include "TunedModel.h"

#include <QMap>

#include <memory>

/// The optimiser: tunes a named value of the model until the reactance is least. Each evaluation is
/// a run of the solver in a folder of its own.
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
    QStringList hostsOfMachinesFile();
    [[nodiscard]] QStringList placesOfThisMachine() const;
    [[nodiscard]] QString wantedAtOnce() const;
    bool openFolder();
    bool checkResults();
    bool takeOverRuns();
    void makeSearch();

    void advance();
    void planRound(const QVector<double>& points);
    bool startRound();
    void takeRound();
    void takeRun(int run, const QString& host);
    void addEvaluation(const Evaluation& evaluation, const QString& place);
    void takeOver(const Evaluation& evaluation);
    void failRun(int run, const QString& host, const QString& reason);
    void printProgress(double part);
    void printFinalProgress(int run, int percentage);

    void startFinalRun();
    void finishFinalRun();
    QString writeResults();
    void printFacts();
    void giveUp(suite::FindingKind kind, const QString& reason);
    void endWork();

    [[nodiscard]] Evaluation best() const;
    [[nodiscard]] bool isResonance() const;
    [[nodiscard]] bool hasOption(const char* name) const;
    [[nodiscard]] QString option(const char* name) const;

    QStringList m_resultPaths;
    OptimisationState m_state;
    QMap<int, Evaluation> m_earlier; ///< that this search would do again
    QMap<int, double> m_round;       // the values of the runs that are not done yet
    std::unique_ptr<TunedModel> m_model;
    std::unique_ptr<RunFolder> m_folder;
    std::unique_ptr<EvaluationFarm> m_farm;
    std::unique_ptr<suite::SectionSearch> m_search;
    int m_failedRun = -1;
    int m_nextRun = 1;
    int m_roundStart = 0; ///< the first run of the round
    int m_roundCount = 0;
    int m_takenOver = 0;
    bool m_isConverged = true;
};
