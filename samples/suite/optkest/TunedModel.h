// SPDX-License-Identifier: MIT
#pragma once

#include "Model.h"

/// The bytes of a model whose optimised value has been replaced.
class TunedModel
{
public:
    /// The model must say what to optimise.
    explicit TunedModel(const suite::Model& model);

    /// The model with this value; nothing else changes.
    [[nodiscard]] QByteArray withValue(double value) const;

    /// The same, at one frequency in MHz.
    [[nodiscard]] QByteArray withValueAndFrequency(double value, double frequency) const;

    /// A text that differs between models.
    [[nodiscard]] QByteArray fingerprint() const;

private:
    struct Piece
    {
        int start = 0;
        int length = 0;
    };

    [[nodiscard]] Piece line(int number) const;

    QByteArray m_bytes;
    Piece m_value;
    Piece m_frequency;
};
