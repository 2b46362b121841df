#pragma once

#include <QMap>
#include <QStringList>

namespace suite {

/// The host that a run shall happen on: "[user@]HOST [user=NAME] [port=NUMBER] [home=FOLDER]".
class RemoteHost
{
public:
    explicit RemoteHost(const QString& text);

    /// The first word that cannot be used, and why, as part of a sentence; empty when all can.
    QString error() const { return m_error; }

    /// The host's name or address.
    QString name() const { return m_name; }

    /// The words for ssh: user and port, and the host as the last.
    QStringList sshWords() const;

    /// The installation's folder there; empty when it was not given.
    QString home() const { return m_words.value(QStringLiteral("home")); }

    /// Everything that was given with the host's name.
    const QMap<QString, QString>& arguments() const { return m_words; }

private:
    QString readHost(const QString& word);
    QString readWord(const QString& word);

    QString m_name;
    QMap<QString, QString> m_words;
    QString m_error;
};

} // namespace suite
