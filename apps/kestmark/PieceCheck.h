// SPDX-License-Identifier: MIT
#pragma once

#include "CheckedPiece.h"
#include "SolverPiece.h"

/// What the library's parser makes of one piece, and what is odd about it. Knows no other pieces.
namespace PieceCheck {

CheckedPiece check(const SolverPiece& piece);

} // namespace PieceCheck
