#pragma once

#include <QString>

#include <functional>

/// What an application is to do.
struct ApplicationTask
{
    QString problem;          ///< why the command line is refused; empty when it is not
    std::function<int()> run; ///< does it and returns the exit code; only where there is no problem
};
