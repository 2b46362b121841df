#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class common_PropertyMetaData;

/// Where and how a launch option is shown. Its type, its members and its label, where it has one,
/// are registered by the library.
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

    /// The whole label, with the mnemonic.
    QString text() const;

    /// The same without the mnemonic.
    QString plainText() const;

    /// What a screen reader says.
    QString spokenName() const;

    /// What is registered for the option.
    const common_PropertyMetaData& metaData() const;
};

/// The launch options in the dialog, each once.
namespace LaunchOptionTable {

const QVector<LaunchOptionRow>& rows();

/// The tabs' titles, in order.
const QStringList& tabs();

/// The titles of a tab's groups, in order.
QStringList groups(const QString& tab);

/// Whether the group has a button for the machines file.
bool hasMachines(const QString& group);

} // namespace LaunchOptionTable
