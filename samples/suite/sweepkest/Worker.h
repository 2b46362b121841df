// SPDX-License-Identifier: MIT
#pragma once

#include "SweepRank.h"

/// A process that solves the frequencies that the dealer assigns to it.
class Worker : public SweepRank
{
    Q_OBJECT

public:
    explicit Worker(MpiLink& link);

private:
    void take(const suite::Frame& frame);
    void report(int index, const QString& error, const QByteArray& output);
};
