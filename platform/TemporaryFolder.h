#ifndef TEMPORARYFOLDER_H
#define TEMPORARYFOLDER_H

#include <QTemporaryDir>

/// A folder among the system's temporary files that goes with this object. Its name says which
/// process made it, so that another one can remove it after that process was killed.
class TemporaryFolder : public QTemporaryDir
{
public:
    /// The purpose, small letters only, is a part of the name: "kest-PURPOSE-...".
    explicit TemporaryFolder(const QString& purpose);

    /// Removes the folders of processes that have ended without doing so: those of this user and
    /// this host. Links are not followed; what cannot be removed stays.
    static void removeLeft();
};

#endif
