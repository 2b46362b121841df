// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class common_PropertyMetaData;

/// Where and how a launch option is shown. Its type, its members and its label, where it has one,
/// are registered by the library. A translation of the label here replaces the registered one.
struct LaunchOptionRow
{
    const char* key;
    const char* tab;
    const char* group;
    const char* label; ///< with the mnemonic; of a registered label only the word with the mnemonic
    const char* unit;
    const char* switchKey;      ///< the boolean option that this one depends on; empty for none
    const char* accessibleName; ///< empty where the label or the registered label is good enough
    const char* hint;

    /// The complete label, with the mnemonic.
    QString text() const;

    /// The unit and the hint in the user's language.
    QString unitText() const;
    QString hintText() const;

    /// The complete label without the mnemonic.
    QString plainText() const;

    /// The accessible name, for screen readers.
    QString spokenName() const;

    /// The registration of the option.
    const common_PropertyMetaData& metaData() const;
};

/// The launch options in the dialog, each once.
namespace LaunchOptionTable {

const QVector<LaunchOptionRow>& rows();

/// The tabs' names, in order.
const QStringList& tabs();

/// The names of a tab's groups, in order.
QStringList groups(const QString& tab);

/// The title of a tab or group, which is its name in the user's language.
QString title(const QString& name);

/// Whether the group has a button for the machines file.
bool hasMachines(const QString& group);

} // namespace LaunchOptionTable
