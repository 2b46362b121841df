// SPDX-License-Identifier: MIT
#pragma once

/// What of a check is shown.
enum class ReportStyle {
    AllLines,
    RemarksOnly, ///< leaves out the lines that nothing is odd about
};
