#pragma once

#include <QHash>
#include <QString>

class Run;

/// Titles of the windows of runs, each of its own within a session.
class RunTitles
{
public:
    /// The model's name, a number from its second run on, and the component.
    QString next(const Run& run);

private:
    QHash<QString, int> m_counts; ///< of the titles without their numbers
};
