// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The largest of 1, 2, 5, 10, 20 and so on, up and down, that is not greater.
double roundLength(double most);

/// A length in metres with the unit in which it reads best: "2 mm", "50 m".
QString lengthText(double metres);
