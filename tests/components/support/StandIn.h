// SPDX-License-Identifier: MIT
#pragma once

#include <QFileInfo>
#include <QString>
#include <QStringList>

/// A program in a folder that records how it is called, and starts another one in its place.
class StandIn
{
public:
    /// What it does beside recording.
    struct Plan
    {
        QString program;    ///< that it starts
        int delay = 0;      ///< before that, in milliseconds
        int passedOn = -1;  ///< how many of its arguments the program gets; all when negative
        QString failsWith;  ///< it fails when an argument holds this text
        QString error = {}; ///< what it prints then
    };

    /// Puts it into the folder, under a name without suffix.
    StandIn(const QString& folder, const QString& name);

    /// False when the plan cannot be written.
    bool setPlan(const Plan& plan) const;

    /// Its file.
    QString program() const { return m_program; }

    /// The arguments of each call, separated by "|".
    QStringList calls() const;

    /// Forgets the calls up to now.
    void removeCalls() const;

private:
    QString file(const char* suffix) const;
    QFileInfoList records() const;

    QString m_path;
    QString m_program;
};
