#pragma once

#include <QRegularExpression>
#include <QString>

namespace suite {

/// A folder beside the model for what a component keeps while it works. One run at a time has it;
/// it is free again when that run has ended, however it ended. Only what components make is ever
/// removed from it, and no symbolic link is followed.
class WorkFolder
{
public:
    /// The program is the component's name: a folder that another program made is not used.
    WorkFolder(QString path, QString program);

    /// Releases the folder, and removes it if it is empty.
    ~WorkFolder();

    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    /// Makes the folder, or takes the one of an earlier run; false when it cannot be used.
    bool open();
    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }

    /// What went wrong, with the folder's name.
    [[nodiscard]] QString error() const { return m_error; }

    /// The absolute path of an entry of the folder.
    [[nodiscard]] QString path(const QString& name) const;

    /// Makes a folder in it; one that is there already will do.
    bool makeFolder(const QString& name);

    /// Removes the plain files with such names from the folder, or from a folder in it, which is
    /// removed, too, if nothing else is in it.
    void removeFiles(const QRegularExpression& names) const;
    void removeFolder(const QString& name, const QRegularExpression& names) const;

private:
    enum class Attempt { Done, Failed, Again };

    Attempt tryOpen();
    bool takeOver();
    bool fail(const QString& reason);
    void removeIfEmpty();
    [[nodiscard]] QString markName() const;

    QString m_path;
    QString m_program;
    QString m_error;
    int m_descriptor = -1;
};

} // namespace suite
