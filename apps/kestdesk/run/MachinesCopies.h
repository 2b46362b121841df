// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <vector>

class ComponentRunner;

/// The copies of the machines file that runs use, in the user's folder.
///
/// A copy is named after the millisecond in which it was made and is never overwritten, so a run
/// may get a copy that already existed: one of another active run, or one of a program that was
/// killed. Beside each copy that belongs to a run there is a small hidden file that names the
/// owner.
class MachinesCopies
{
public:
    enum class Claim {
        Own,     ///< the runner has no copy, or one that was made for it and that it deletes
        Foreign, ///< the runner uses a copy of another run, and no longer deletes it
    };

    /// When each copy was written, in milliseconds since 1970, by its path.
    using Times = QHash<QString, qint64>;

    explicit MachinesCopies(QString folder);

    /// Removes the copies that killed programs of this host have left behind, except those that are
    /// still among the arguments of a process. A copy without a record is removed if its maker
    /// announced it.
    void removeLeft() const;

    /// The times of the copies that exist now.
    Times times() const;

    /// Finds out whether the copy of a runner that has been set up belongs to it. The times are
    /// those before the set-up. A copy whose content differs from the machines file is foreign,
    /// too.
    Claim claim(ComponentRunner& runner, const Times& before) const;

    /// Makes a copy for this runner alone, with that content, under an unused name. Returns its
    /// path; empty if it cannot be made.
    QString add(ComponentRunner& runner, const QByteArray& content) const;

    /// The millisecond that the runner's copy is named after; -1 if it has none.
    static int millisecondOf(const ComponentRunner& runner);

    /// Blocks, for three seconds at most, until the name of the moment that is `lead` milliseconds
    /// ahead is unused. False if all names are in use.
    bool waitForFreeName(const Times& times, int lead) const;

private:
    std::vector<bool> takenNumbers(const Times& times) const;
    QString pathOf(int number) const;
    QString pathOf(const QString& name) const;

    QString m_folder;
};
