#pragma once

#include "ComponentProgram.h"
#include "ComponentStage.h"
#include "EngineOutput.h"
#include "ResultFiles.h"
#include "SegmentRefinement.h"
#include "WorkFolder.h"

#include <memory>
#include <optional>

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
    /// One step; the change is the impedance's since the step before, as a part of it.
    struct Iteration
    {
        int factor = 1;
        suite::Impedance impedance;
        std::optional<double> change;
    };

    bool prepare();
    bool openFolder();
    bool writeDeck(const QString& folder, const QString& name, const QByteArray& deck);
    void startIteration();
    void endIteration();
    bool readIteration();
    void printIteration();
    void judge();
    void endRefinement();
    void startFinalSolve();
    void passOn(const suite::MarkerLine& line);
    void endFinalSolve();
    void writeResults();
    bool copyToResult(int index, const QString& path);

    void startRunkest(const QString& model, void (Amrkest::*ended)());
    void removeWork();
    [[nodiscard]] QByteArray table() const;
    [[nodiscard]] QString iterationFolder(int number) const;
    [[nodiscard]] QString stem() const;
    [[nodiscard]] int mostIterations() const;
    [[nodiscard]] double threshold() const;
    [[nodiscard]] bool has(const char* option) const;
    [[nodiscard]] int nextFactor() const { return 2 * m_iterations.size() + 1; }
    void printTotal(int percentage);

    std::unique_ptr<suite::SegmentRefinement> m_refinement;
    std::unique_ptr<suite::WorkFolder> m_folder;
    std::unique_ptr<suite::ComponentStage> m_stage;
    suite::ResultFiles m_results;
    QStringList m_resultPaths;
    suite::FindingList m_conclusion;
    QVector<Iteration> m_iterations;
    QString m_stemPath; ///< the model's, without its suffix
    double m_frequency = 0;
    int m_total = 0;
};
