#pragma once

#include <QMap>
#include <QStringList>

namespace suite {

/// The host that a run shall happen on, as the option --remote-host gives it: "[user@]name", and
/// words NAME=VALUE behind it.
class RemoteHost
{
public:
    explicit RemoteHost(const QString& text);

    /// What is wrong; empty when the host can be used.
    [[nodiscard]] QString error() const { return m_error; }

    [[nodiscard]] QString name() const { return m_name; }

    /// The words for ssh: user and port, and the host as the last.
    [[nodiscard]] QStringList sshWords() const;

    /// The installation's folder there; empty when it was not given.
    [[nodiscard]] QString home() const { return m_words.value(QStringLiteral("home")); }

    /// Everything that was given with the host's name.
    [[nodiscard]] const QMap<QString, QString>& arguments() const { return m_words; }

private:
    void readHost(const QString& word);
    void readWord(const QString& word);
    void complain(const QString& problem, const QString& word);

    QString m_name;
    QMap<QString, QString> m_words;
    QString m_error;
};

} // namespace suite
