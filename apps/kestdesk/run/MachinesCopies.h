#pragma once

#include <QHash>
#include <QString>

#include <vector>

class ComponentRunner;

/// The copies of the machines file that runs are given, in the user's folder.
///
/// A copy is named after the millisecond of its making and is never written over, so a run may be
/// given one that was there already: of another run that is going on, or of a program that was
/// killed. Beside each copy that is a run's own there is a small hidden file that says whose it is.
class MachinesCopies
{
public:
    enum class Claim {
        Own,     ///< the runner has no copy, or one that was made for it; the runner deletes it
        Foreign, ///< the runner's copy is not its own, and the runner does not delete it any more
    };

    /// When each copy was written, by its path.
    using Times = QHash<QString, qint64>;

    explicit MachinesCopies(QString folder);

    /// Removes the copies that programs of this host have left behind when they were killed; not
    /// those that a process still has among its arguments.
    void removeLeft() const;

    /// Those that are there.
    Times times() const;

    /// After the set-up of a runner: is its copy its own? The times are those before the set-up;
    /// the copy must be as the machines file is now.
    Claim claim(ComponentRunner& runner, const Times& before) const;

    /// Makes a copy of its own for the runner, with that content, under a name that is free.
    /// Returns its path; empty when it cannot be made.
    QString add(ComponentRunner& runner, const QByteArray& content) const;

    /// The millisecond that the runner's copy is named after; -1 when it has none.
    static int number(const ComponentRunner& runner);

    /// Waits for a moment from which it takes that many milliseconds to one whose name is free,
    /// for three seconds at most. False when all names are taken.
    bool waitForFreeName(const Times& times, int lead) const;

private:
    std::vector<bool> takenNumbers(const Times& times) const;
    QString pathOf(int number) const;
    QString pathOf(const QString& name) const;

    QString m_folder;
};
