// SPDX-License-Identifier: MIT
#include "DeckFile.h"

#include <InputFile.h>
#include <OutputFile.h>

#include <QCryptographicHash>

#include <algorithm>

namespace {

constexpr qint64 largestDeck = 16 << 20;   // bytes
constexpr qint64 largestSaved = 512 << 20; // bytes; what was typed may be more than can be opened
const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");

bool isUtf8(const QByteArray& bytes)
{
    const QByteArray text = 'x' + bytes; // a byte order mark at the begin would be skipped
    return QString::fromUtf8(text).toUtf8() == text;
}

// An editor takes these for line breaks, and could not tell later what they were.
const QChar lineBreakers[] = {QChar(QChar::ParagraphSeparator), QChar(0xfdd0), QChar(0xfdd1)};

// Stands for a carriage return that is no part of how all lines end: the user sees it, and may
// delete it.
const QChar shownReturn(0x21b5);

// Where this holds, a line feed alone stands for both.
bool isWindowsText(const QByteArray& bytes)
{
    const int pairs = bytes.count("\r\n");
    return pairs > 0 && pairs == bytes.count('\n') && pairs == bytes.count('\r');
}

bool isLatin1(const QString& text, QChar exception)
{
    return std::all_of(text.begin(), text.end(), [exception](QChar character) {
        return character.unicode() <= 0xff || character == exception;
    });
}

bool canBeShown(const QString& text)
{
    return !text.contains(QChar(QChar::Null)) &&
           std::none_of(std::begin(lineBreakers), std::end(lineBreakers),
                        [&text](QChar breaker) { return text.contains(breaker); });
}

} // namespace

bool DeckFile::load(const QString& path)
{
    suite::InputFile file(path);
    const std::optional<QByteArray> bytes = file.read(largestDeck);
    if (!bytes) {
        return fail(file.reason());
    }
    if (!decode(*bytes)) {
        return fail(tr("it holds characters that are no text"));
    }
    m_path = path;
    m_fingerprint = fingerprint(path);
    m_error.clear();
    return true;
}

bool DeckFile::save(const QString& path, const QString& text)
{
    if (m_form.encoding == Encoding::Latin1 &&
        !isLatin1(text, m_form.hasShownReturns ? shownReturn : QChar())) {
        return fail(tr("it holds characters that the file's encoding (Latin-1) lacks"));
    }
    suite::OutputFile file(path);
    if (!file.replace(bytes(text))) {
        return fail(file.reason());
    }
    m_path = path;
    m_text = text;
    m_fingerprint = fingerprint(path);
    m_error.clear();
    return true;
}

bool DeckFile::isChangedOutside() const
{
    return !m_path.isEmpty() && fingerprint(m_path) != m_fingerprint;
}

QByteArray DeckFile::bytes(const QString& text) const
{
    return encoded(m_form, text);
}

QByteArray DeckFile::encoded(const Form& form, const QString& text)
{
    QString content = text;
    if (form.lineEnd == "\r\n") {
        content.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    }
    if (form.hasShownReturns) {
        content.replace(shownReturn, QLatin1Char('\r'));
    }
    return form.mark + (form.encoding == Encoding::Utf8 ? content.toUtf8() : content.toLatin1());
}

bool DeckFile::fail(const QString& reason)
{
    m_error = reason;
    return false;
}

bool DeckFile::decode(const QByteArray& bytes)
{
    Form form;
    form.encoding = isUtf8(bytes) ? Encoding::Utf8 : Encoding::Latin1;
    form.mark = bytes.startsWith(byteOrderMark) ? byteOrderMark : QByteArray();
    form.lineEnd = isWindowsText(bytes) ? QByteArrayLiteral("\r\n") : QByteArrayLiteral("\n");
    form.hasShownReturns = form.lineEnd == "\n" && bytes.contains('\r');
    const QByteArray plain = bytes.mid(form.mark.size());
    QString text =
        form.encoding == Encoding::Utf8 ? QString::fromUtf8(plain) : QString::fromLatin1(plain);
    if (form.hasShownReturns) {
        text.replace(QLatin1Char('\r'), shownReturn);
    } else {
        text.remove(QLatin1Char('\r'));
    }
    if (!canBeShown(text) || encoded(form, text) != bytes) {
        return false;
    }
    m_form = form;
    m_text = text;
    return true;
}

QByteArray DeckFile::fingerprint(const QString& path)
{
    const std::optional<QByteArray> content = suite::InputFile(path).read(largestSaved);
    return content ? QCryptographicHash::hash(*content, QCryptographicHash::Sha256) : QByteArray();
}
