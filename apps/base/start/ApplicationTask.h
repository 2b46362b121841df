// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

/// The task of an application.
struct ApplicationTask
{
    QString problem;          ///< why the command line is invalid; empty if it is valid
    std::function<int()> run; ///< returns the exit code; empty if there is a problem
};
