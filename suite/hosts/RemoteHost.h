// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QStringList>

namespace suite {

/// The host for a remote run: "[user@]HOST [user=NAME] [port=NUMBER] [home=FOLDER]".
class RemoteHost
{
public:
    explicit RemoteHost(const QString& text);

    /// The first invalid word and why, as part of a sentence; empty if all are valid.
    QString error() const { return m_error; }

    /// The host's name or address.
    QString name() const { return m_name; }

    /// The arguments for ssh: user and port, and the host at the end.
    QStringList sshWords() const;

    /// The installation's folder on the host; empty if it was not given.
    QString home() const { return m_words.value(QStringLiteral("home")); }

    /// All values that were given with the host's name, by key.
    const QMap<QString, QString>& arguments() const { return m_words; }

private:
    QString readHost(const QString& word);
    QString readWord(const QString& word);

    QString m_name;
    QMap<QString, QString> m_words;
    QString m_error;
};

} // namespace suite
