// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>

#include <QtGlobal>

#include <array>

/// What is in a component's output, as far as it has been read.
struct OutputSummary
{
    static constexpr int none = -1;

    qint64 lines = 0;
    qint64 blankLines = 0;
    std::array<qint64, common_IProcessMessage::Variable + 1> messages = {}; ///< by their types
    qint64 remarks = 0;
    int phasePercentage = none; ///< the last one within the range
    int totalPercentage = none; ///< the last one within the range
};
