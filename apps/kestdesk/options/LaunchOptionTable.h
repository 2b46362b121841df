#pragma once

#include <QStringList>
#include <QVector>

/// How a launch option is shown and changed.
struct LaunchOptionRow
{
    enum Editor {
        CheckBox,
        Fixed, ///< a check box that nobody can change
        ComboBox,
        NumberBox,
        LineEdit,
        TextEdit
    };

    const char* key;
    const char* tab;
    const char* group;
    Editor editor;
    const char* label; ///< with the mnemonic
    const char* unit;
    const char* switchKey; ///< the boolean option that this one depends on; empty for none
    const char* accessibleName;
    const char* hint;
};

/// Where each of the launch options is in the dialog.
namespace LaunchOptionTable {

const QVector<LaunchOptionRow>& rows();

/// The titles, in order.
const QStringList& tabs();

/// The groups of a tab, in order.
QStringList groups(const QString& tab);

/// Whether the group has a button for the machines file.
bool hasMachines(const QString& group);

} // namespace LaunchOptionTable
