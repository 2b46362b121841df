#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Lets the user change the machines file in an editor: on a copy, which takes the file's place
/// when it is right or the user says so. Whatever happens, what was typed is in one of the two.
class MachinesEditor
{
public:
    MachinesEditor();

    /// The program's exit code: 0 saved, or nothing to save; 1 not saved; 2 nothing could be
    /// edited. Says why on standard error.
    int exec();

private:
    enum class Answer { EditAgain, Save, Discard, Keep };

    bool readOriginal();
    bool makeCopy();
    int editCopy();
    int conclude();
    Answer judge(const QByteArray& edited) const;
    int save(const QByteArray& edited);
    int keepCopy(const QString& reason) const;
    int dropCopy(const QString& reason) const;

    QString m_fileName; ///< the user's machines file
    QString m_copyName;
    std::optional<QByteArray> m_original; ///< nothing where the user has no file
    QByteArray m_begun;                   ///< what the editor was given first
};
