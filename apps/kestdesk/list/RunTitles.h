// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

class Run;

/// Window titles of runs, unique within a session.
class RunTitles
{
public:
    /// The title of a new run: the model's name, a number from the second run on, and the
    /// component.
    QString next(const Run& run);

private:
    QHash<QString, int> m_counts; ///< runs so far, by title without number
};
