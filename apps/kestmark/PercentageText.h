// SPDX-License-Identifier: MIT
#pragma once

#include "Remark.h"

#include <QVector>

/// Whether a component wrote the percentage that the library reads.
namespace PercentageText {

/// What is wrong with the body of a percentage marker that is read as this number; empty when
/// nothing is.
QVector<Remark> remarks(const QString& body, const QString& number);

} // namespace PercentageText
