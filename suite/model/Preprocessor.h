// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "Model.h"

namespace suite {

class ModelFile;

/// Pre-processing: reads a model, checks it and gathers its properties.
class Preprocessor
{
public:
    /// Reads and checks a model's file.
    explicit Preprocessor(const ModelFile& file);

    /// Checks a deck's bytes.
    explicit Preprocessor(const QByteArray& deck);

    [[nodiscard]] const FindingList& findings() const { return m_findings; }
    [[nodiscard]] const Model& model() const { return m_model; }

    /// The model's variables and their values, in a fixed order: what "--print-variables" shows.
    [[nodiscard]] QStringList variables() const;

private:
    void check();
    void buildStructure();
    void checkControls();
    void takeOptimisation();
    void takeAdaptiveSampling();
    void warnOfSegments();
    void addNotices();

    FindingList m_findings;
    Model m_model;
};

} // namespace suite
