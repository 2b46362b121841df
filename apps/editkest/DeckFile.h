// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

/// A deck's text as an editor has it, and how it stands in the file: what was not edited comes back
/// byte for byte.
class DeckFile
{
    Q_DECLARE_TR_FUNCTIONS(DeckFile)

public:
    /// Reads a file. False when it cannot be edited: error() says why, and nothing has changed.
    bool load(const QString& path);

    /// Writes the text into a file, whole or not at all. False when it cannot: error() says why.
    bool save(const QString& path, const QString& text);

    /// Whether the file has changed since it was read or written here.
    bool isChangedOutside() const;

    /// The bytes that save() would write.
    QByteArray bytes(const QString& text) const;

    /// Lines end in a line feed. Where only some lines of the file end as on Windows, a carriage
    /// return is shown as "\u21b5", and becomes one again when the text is written.
    QString text() const { return m_text; }

    QString path() const { return m_path; }
    QString error() const { return m_error; }

private:
    enum class Encoding { Utf8, Latin1 };

    /// How the text stands in the file.
    struct Form
    {
        Encoding encoding = Encoding::Utf8;
        QByteArray mark; ///< in front of the text: the byte order mark, or nothing
        QByteArray lineEnd = QByteArrayLiteral("\n");
        bool hasShownReturns = false; ///< some carriage returns are no line ends, and are shown
    };

    bool fail(const QString& reason);
    bool decode(const QByteArray& bytes);
    static QByteArray encoded(const Form& form, const QString& text);
    static QByteArray fingerprint(const QString& path);

    QString m_path;
    QString m_text;
    QString m_error;
    QByteArray m_fingerprint;
    Form m_form;
};
