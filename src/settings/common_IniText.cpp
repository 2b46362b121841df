// SPDX-License-Identifier: MIT
#include "common_IniText.h"

#include <QtVersion.h>

#include <QString>

#include <algorithm>
#include <utility>

namespace {

constexpr ushort lastPlain = 0x7e; // Qt 5 writes the delete character behind it as an escape
constexpr ushort lastLatin1 = 0xff;

bool isPlain(const QByteArray& content)
{
    return std::all_of(content.begin(), content.end(),
                       [](char byte) { return static_cast<uchar>(byte) <= lastPlain; });
}

bool isHexDigit(ushort character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

/// Writes the escapes. Keys and the names of groups have other ones than values.
class Escaper
{
public:
    QByteArray escaped(const QString& text)
    {
        m_result.reserve(text.size() + text.size() / 2);
        for (const QChar character : text) {
            add(character.unicode());
        }
        return m_result;
    }

private:
    enum class Part { LineStart, Comment, Group, Key, Value };

    void add(ushort character)
    {
        if (m_isAfterBackslash) {
            m_isAfterBackslash = false;
            addAfterBackslash(character);
        } else if (character <= lastPlain) {
            addPlain(static_cast<char>(character));
        } else {
            addEscape(character);
        }
    }

    // In a value, QSettings leaves out a character that makes no escape.
    void addAfterBackslash(ushort character)
    {
        m_isAfterEscape = false;
        if (character <= lastPlain) {
            m_result += static_cast<char>(character);
            m_continuedBy = character == '\r' ? '\n' : character == '\n' ? '\r' : '\0';
        } else if (m_part == Part::Value) {
            m_result.chop(1);
        } else {
            addEscape(character);
        }
    }

    void addPlain(char character)
    {
        m_isAfterEscape = m_isAfterEscape && m_part == Part::Value && isHexDigit(character);
        if (m_isAfterEscape) { // it would be taken for a digit of the escape
            addValueEscape(character);
            return;
        }
        m_result += character;
        if (character != std::exchange(m_continuedBy, '\0')) {
            follow(character);
        }
    }

    void addEscape(ushort character)
    {
        if (m_part == Part::LineStart) {
            m_part = Part::Key;
        }
        if (m_part == Part::Value) {
            addValueEscape(character);
            m_isAfterEscape = true;
        } else {
            m_result += character > lastLatin1 ? "%U" : "%";
            m_result += QByteArray::number(character, 16)
                            .toUpper()
                            .rightJustified(character > lastLatin1 ? 4 : 2, '0');
        }
    }

    void addValueEscape(ushort character) { m_result += "\\x" + QByteArray::number(character, 16); }

    // Lines end where those of QSettings end: not within quotes, nor after a backslash.
    void follow(char character)
    {
        switch (character) {
        case '\n':
        case '\r':
            if (!m_isQuoted || m_part == Part::Comment) {
                m_part = Part::LineStart;
            }
            break;
        case ' ':
        case '\t':
            break;
        default:
            followInLine(character);
        }
    }

    void followInLine(char character)
    {
        if (m_part == Part::Comment) {
            return;
        }
        if (character == ';' && !m_isQuoted) {
            m_part = Part::Comment;
            return;
        }
        if (m_part == Part::LineStart) {
            m_part = character == '[' ? Part::Group : Part::Key;
        }
        if (character == '=' && m_part == Part::Key && !m_isQuoted) {
            m_part = Part::Value;
        }
        m_isAfterBackslash = character == '\\';
        m_isQuoted = m_isQuoted != (character == '"');
    }

    QByteArray m_result;
    Part m_part = Part::LineStart;
    char m_continuedBy = '\0'; ///< belongs to the line end after a backslash, if it comes next
    bool m_isQuoted = false;
    bool m_isAfterBackslash = false;
    bool m_isAfterEscape = false;
};

} // namespace

QByteArray common_IniText::escaped(const QByteArray& written)
{
    return isPlain(written) ? written : Escaper().escaped(QString::fromUtf8(written));
}

QByteArray common_IniText::readable(const QByteArray& content)
{
    const bool isRead =
        !QtVersion::readsSettingsAsUtf8 || isPlain(content) || content.startsWith("\xef\xbb\xbf");
    return isRead ? content : Escaper().escaped(QString::fromLatin1(content));
}
