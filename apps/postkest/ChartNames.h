// SPDX-License-Identifier: MIT
#pragma once

/// Qt 5 has its charts in a namespace, Qt 6 has not. With this header their names are the same.
namespace QtCharts {} // namespace QtCharts

using namespace QtCharts; // NOLINT(google-build-using-namespace): see above
