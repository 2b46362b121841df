// SPDX-License-Identifier: MIT
#pragma once

#include "MachinesFileStore.h"

/// Opens a copy of the machines file in the user's editor. The copy replaces the file if it has no
/// errors or the user agrees. Whatever happens, the user's text is in one of the two.
class MachinesEditor
{
public:
    /// Returns the program's exit code: 0 if saved or unchanged, 1 if not saved, 2 if editing was
    /// impossible. The reason is on standard error. Needs the service common_IApplicationInfo.
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
