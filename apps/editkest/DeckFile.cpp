#include "DeckFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextCodec>

namespace {

constexpr qint64 largestDeck = 16 << 20; // bytes
constexpr const char* utf8 = "UTF-8";
const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");

bool isUtf8(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForName(utf8)->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

// An editor would turn these into line breaks, or cut the text.
bool hasForeignControls(const QByteArray& bytes)
{
    return bytes.contains('\0') || QByteArray(bytes).replace("\r\n", "\n").contains('\r');
}

bool hasMixedLineEnds(const QByteArray& bytes)
{
    const int all = bytes.count('\n');
    const int windows = bytes.count("\r\n");
    return windows != 0 && windows != all;
}

} // namespace

bool DeckFile::load(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir()) {
        return fail(QStringLiteral("it is a folder"));
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(file.errorString());
    }
    const QByteArray bytes = file.read(largestDeck + 1);
    if (bytes.size() > largestDeck) {
        return fail(QStringLiteral("it is larger than a deck can be"));
    }
    if (hasForeignControls(bytes)) {
        return fail(QStringLiteral("it holds bytes that are no text"));
    }
    if (hasMixedLineEnds(bytes)) {
        return fail(QStringLiteral("some of its lines end as on Windows and others do not"));
    }
    decode(bytes);
    m_path = path;
    m_fingerprint = fingerprint(path);
    m_error.clear();
    return true;
}

bool DeckFile::save(const QString& path, const QString& text)
{
    if (m_encoding == Encoding::Latin1 && QString::fromLatin1(text.toLatin1()) != text) {
        return fail(QStringLiteral("it holds characters that the file's encoding (Latin-1) lacks"));
    }
    const QByteArray content = bytes(text);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() ||
        !file.commit()) {
        return fail(file.errorString());
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
    QByteArray result = m_encoding == Encoding::Utf8 ? text.toUtf8() : text.toLatin1();
    return m_mark + (m_lineEnd == "\n" ? result : result.replace("\n", m_lineEnd));
}

bool DeckFile::fail(const QString& reason)
{
    m_error = reason;
    return false;
}

void DeckFile::decode(const QByteArray& bytes)
{
    m_encoding = isUtf8(bytes) ? Encoding::Utf8 : Encoding::Latin1;
    m_lineEnd = bytes.contains("\r\n") ? QByteArrayLiteral("\r\n") : QByteArrayLiteral("\n");
    m_mark = bytes.startsWith(byteOrderMark) ? byteOrderMark : QByteArray();
    const QByteArray plain = bytes.mid(m_mark.size()).replace("\r\n", "\n");
    m_text = m_encoding == Encoding::Utf8 ? QString::fromUtf8(plain) : QString::fromLatin1(plain);
}

QByteArray DeckFile::fingerprint(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result() : QByteArray();
}
