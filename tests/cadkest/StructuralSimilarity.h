// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

/// How alike two pictures of one size look: the mean index of structural similarity over windows of
/// 8 by 8 grey pixels, 1 for equal pictures.
///
/// Only windows count in which at least one of the pictures shows anything: a scene of thin wires
/// leaves most of a picture empty, and emptiness would hide every difference.
double structuralSimilarity(const QImage& left, const QImage& right);
