// SPDX-License-Identifier: MIT
#include "PieceText.h"

#include "MarkerScan.h"

#include <common_KestProcessMessage.h>

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr QChar stand(0xf8ff); // for a star, in private use
constexpr int longestMarker = 64;
const char* const replacement = "\xEF\xBF\xBD";

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
}

int sequenceLength(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0xf0U ? 4 : value >= 0xe0U ? 3 : value >= 0xc0U ? 2 : 1;
}

// The bytes at the front that belong to a character which the piece before begins.
int leadingRest(const SolverPiece& piece)
{
    int length = 0;
    while (piece.number > 1 && length < 3 && length < piece.bytes.size() &&
           isContinuation(piece.bytes[length])) {
        ++length;
    }
    return length;
}

// The bytes at the end that belong to a character which the next piece ends.
int trailingStart(const SolverPiece& piece)
{
    const int size = piece.bytes.size();
    for (int length = 1; !piece.isLast && length <= 3 && length <= size; ++length) {
        const char byte = piece.bytes[size - length];
        if (!isContinuation(byte)) {
            return sequenceLength(byte) > length ? length : 0;
        }
    }
    return 0;
}

// Also what is behind a NUL.
QString textOf(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

bool isUtf8(const QByteArray& bytes)
{
    return textOf(bytes).count(QChar(QChar::ReplacementCharacter)) == bytes.count(replacement);
}

QByteArray withoutLineEnd(const QByteArray& bytes)
{
    QByteArray result = bytes;
    if (result.endsWith('\n')) {
        result.chop(result.endsWith("\r\n") ? 2 : 1);
    }
    return result;
}

bool isControl(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return (value < 0x20U && byte != '\t' && byte != '\r' && byte != '\n') || value == 0x7fU;
}

} // namespace

QString PieceText::decode(const SolverPiece& piece)
{
    return textOf(piece.bytes);
}

// Without a star there is no marker, and the parser gives back all of the text.
QString PieceText::cleaned(const QString& text)
{
    QString masked = text;
    masked.replace(QLatin1Char('*'), stand);
    const auto messages = common_KestProcessMessage::parseOutput(masked);
    if (messages.isEmpty() || text.contains(stand)) {
        return text;
    }
    return messages.constFirst().getText().replace(stand, QLatin1Char('*'));
}

QVector<Remark> PieceText::remarks(const SolverPiece& piece)
{
    QVector<Remark> result;
    const QByteArray line = withoutLineEnd(piece.bytes);
    const int front = leadingRest(piece);
    if (!isUtf8(piece.bytes.mid(front, piece.bytes.size() - front - trailingStart(piece)))) {
        result.append({Remark::Kind::NotUtf8,
                       QCoreApplication::translate(
                           "Remark", "not UTF-8: bytes that cannot be read are shown as %1")
                           .arg(QChar(QChar::ReplacementCharacter))});
    }
    if (line.contains('\r') && !line.trimmed().isEmpty()) {
        result.append({Remark::Kind::CarriageReturn,
                       QCoreApplication::translate(
                           "Remark", "carriage returns are removed, and the text in front of them "
                                     "and behind them is joined; print whole lines")});
    }
    if (std::any_of(line.cbegin(), line.cend(), isControl)) {
        result.append({Remark::Kind::ControlCharacter,
                       QCoreApplication::translate(
                           "Remark", "control characters, such as those of colours, are not "
                                     "interpreted")});
    }
    if (piece.number == 1 && !piece.isLast) {
        result.append({Remark::Kind::LongLine,
                       QCoreApplication::translate(
                           "Remark", "longer than 1023 bytes: it arrives in pieces, and each is "
                                     "read like a line of its own")});
    }
    return result;
}

QVector<Remark> PieceText::cutRemarks(const QString& endBefore, const SolverPiece& piece)
{
    QVector<Remark> result;
    if (leadingRest(piece) > 0) {
        result.append(
            {Remark::Kind::CutCharacter,
             QCoreApplication::translate("Remark", "a character is lost where the line is cut")});
    }
    const QString before = endBefore.right(longestMarker);
    const auto found = MarkerScan::markers(before + decode(piece).left(longestMarker));
    const int cut = before.size();
    const auto isCut = [cut](const MarkerScan::Found& marker) {
        return marker.position < cut && marker.end > cut;
    };
    const auto marker = std::find_if(found.begin(), found.end(), isCut);
    if (marker != found.end()) {
        result.append({Remark::Kind::CutMarker,
                       QCoreApplication::translate(
                           "Remark", "%1 is not recognised, because the line is cut within it")
                           .arg(marker->text)});
    }
    return result;
}
