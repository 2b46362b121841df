// SPDX-License-Identifier: MIT
#include "FileName.h"

#include "NativeName.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace suite {

namespace {

// Low surrogates without a high one before them: text never holds them.
constexpr uint escapeBase = 0xdc00;
constexpr uint firstEscape = escapeBase + 0x80;
constexpr uint lastEscape = escapeBase + 0xff;

// 0 when no character begins there.
int characterLength(const QByteArray& bytes, int start)
{
    constexpr int longestCharacter = 4;
    for (int length = 1; length <= longestCharacter && start + length <= bytes.size(); ++length) {
        const QByteArray piece = bytes.mid(start, length);
        if (QString::fromUtf8(piece).toUtf8() == piece) {
            return length;
        }
    }
    return 0;
}

bool hasEscapedByte(const QString& path)
{
    for (int i = 0; i < path.size(); ++i) {
        const bool isSecondOfPair = i > 0 && path.at(i - 1).isHighSurrogate();
        if (FileName::isEscapedByte(path.at(i).unicode()) && !isSecondOfPair) {
            return true;
        }
    }
    return false;
}

// Dialogs and Qt itself give this character for bytes that they cannot read.
bool isReplaced(const QString& path)
{
    return path.contains(QChar(QChar::ReplacementCharacter)) && !QFileInfo::exists(path);
}

} // namespace

QString FileName::fromNative(const QByteArray& name)
{
    if (NativeName::isOpenable(name)) {
        return NativeName::decoded(name);
    }
    QString result;
    for (int i = 0; i < name.size();) {
        const int length = characterLength(name, i);
        if (length > 0) {
            result += QString::fromUtf8(name.constData() + i, length);
        } else {
            result += QChar(static_cast<ushort>(escapeBase + static_cast<uchar>(name.at(i))));
        }
        i += std::max(length, 1);
    }
    return result;
}

QString FileName::fromUrl(const QUrl& url)
{
    const QByteArray path =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    const bool isPlain =
        !url.isLocalFile() || !url.host().isEmpty() || NativeName::isOpenable(path);
    return isPlain ? url.toLocalFile() : fromNative(path);
}

QString FileName::absolute(const QString& path)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

QStringList FileName::unusableIn(const QString& folder)
{
    QStringList result;
    std::error_code error;
    std::filesystem::directory_iterator entry(std::filesystem::path(folder.toStdU16String()),
                                              error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const QString name =
            fromNative(QByteArray::fromStdString(entry->path().filename().u8string()));
        if (hasEscapedByte(name)) {
            result.append(name);
        }
    }
    result.sort();
    return result;
}

QString FileName::problem(const QString& path)
{
    if (hasEscapedByte(path) || isReplaced(path)) {
        return QStringLiteral("its name, or the name of a folder that it is in, is not UTF-8; "
                              "rename it");
    }
    if (!NativeName::isOpenable(path)) {
        return QStringLiteral("the encoding of this session lacks characters of its name; use a "
                              "session in UTF-8, for example with LC_ALL=C.UTF-8");
    }
    return QString();
}

bool FileName::isEscapedByte(uint code)
{
    return code >= firstEscape && code <= lastEscape;
}

uint FileName::escapedByte(uint code)
{
    return code - escapeBase;
}

} // namespace suite
