// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "Model.h"

namespace suite {

/// Checks the control cards against the structure, and stores their data in the model.
class ControlCheck
{
public:
    /// The model's structure must be built already.
    ControlCheck(Model& model, FindingList& findings);

    /// Checks one card, by its index in the deck.
    void check(int index);

private:
    void checkFrequency(const Card& card);
    void checkExcitation(const Card& card);
    void checkLoad(const Card& card);
    void checkConnection(const Card& card);
    void checkGround(const Card& card);
    void checkPattern(const Card& card);
    void checkNearField(const Card& card);
    void checkPlot(const Card& card);

    bool checkType(const Card& card, int least, int most);
    bool checkSegment(const Card& card, int tag, int segment);
    bool checkTag(const Card& card, int tag);
    void checkPoints(const Card& card, double count);
    void checkLoadValue(const Card& card);

    Model& m_model;
    FindingList& m_findings;
};

} // namespace suite
