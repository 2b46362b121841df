// SPDX-License-Identifier: MIT
#pragma once

#include <HeldFolder.h>

#include <QRegularExpression>
#include <QString>

namespace suite {

/// A folder beside the model for the files that a component keeps while it works. It is locked for
/// one run at a time, until that run ends in any way. Only files of components are ever removed
/// from it, and symbolic links are not followed.
class WorkFolder
{
public:
    /// `program` is the component's name. A folder that another program has made is not used.
    WorkFolder(QString path, QString program);

    /// Releases the folder, and removes it if it is empty.
    ~WorkFolder();

    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    /// Makes the folder, or takes that of an earlier run. On failure returns false and sets
    /// error().
    bool open();
    [[nodiscard]] bool isOpen() const { return m_folder.isHeld(); }

    /// Why the last operation failed, with the folder's name.
    [[nodiscard]] QString error() const { return m_error; }

    /// The absolute path of an entry of the folder.
    [[nodiscard]] QString path(const QString& name) const;

    /// Makes a folder in it, unless it exists. On failure returns false and sets error().
    bool makeFolder(const QString& name);

    /// Removes the plain files with matching names.
    void removeFiles(const QRegularExpression& names) const;

    /// What happens to symbolic links with matching names.
    enum class Links { Keep, Remove };

    /// Removes the plain files with matching names from a folder in it, and the folder itself if it
    /// is empty then.
    void removeFolder(const QString& name, const QRegularExpression& names,
                      Links links = Links::Keep) const;

private:
    enum class Attempt { Done, Failed, Again };

    Attempt tryOpen();
    bool takeOver();
    void writeOwner() const;
    [[nodiscard]] QString owner() const;
    bool fail(const QString& reason);
    void removeIfEmpty();
    [[nodiscard]] QString markName() const;

    QString m_path;
    QString m_program;
    QString m_error;
    HeldFolder m_folder;
};

} // namespace suite
