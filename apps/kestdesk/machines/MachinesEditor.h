#pragma once

#include "MachinesFileStore.h"

/// Lets the user change the machines file in an editor: on a copy, which takes the file's place
/// when it has no errors or the user says so. Whatever happens, what was typed is in one of the
/// two.
class MachinesEditor
{
public:
    /// The program's exit code: 0 saved, or nothing to save; 1 not saved; 2 nothing could be
    /// edited. Says why on standard error. Needs the service common_IApplicationInfo.
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

    MachinesFileStore m_store;
    QString m_copyName;
    QByteArray m_begun; ///< what the editor was given first
};
