// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentRunner.h"

/// A runner for the process dialog. The dialog does not show variables, which the user may make
/// components print, so this runner passes them on as plain output.
class WindowRunner : public ComponentRunner
{
protected:
    void onOutputRecieved(const QString& line) override;
    void onErrorRecieved(const QString& line) override;

private:
    void notify(const QVector<common_KestProcessMessage>& messages);
};
