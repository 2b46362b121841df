#pragma once

#include "ComponentRunner.h"

/// A runner whose messages the process dialog can take: it has no place for variables, which the
/// user may ask components to print, so these come as plain output.
class WindowRunner : public ComponentRunner
{
protected:
    void onOutputRecieved(const QString& line) override;
    void onErrorRecieved(const QString& line) override;

private:
    void notify(const QVector<common_KestProcessMessage>& messages);
};
