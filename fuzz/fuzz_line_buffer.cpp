// SPDX-License-Identifier: MIT
// The runner's line buffer, held against a reading of the whole stream: lines with their line feed,
// longer ones in pieces of 1023 bytes, and nothing of a line that has not ended.
//
// An input begins with eight bytes that say how much arrives at once and how much of it is taken.

#include "Fuzzing.h"

#include <common_LineBuffer.h>

#include <QIODevice>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <vector>

namespace {

// Hands out one chunk, in two reads where the chunk is long.
class ChunkDevice : public QIODevice
{
public:
    explicit ChunkDevice(const QByteArray& chunk) : m_left(chunk)
    {
        setOpenMode(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_left.size(); }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        const int count = static_cast<int>(std::min<qint64>({most, m_left.size(), 3000}));
        std::memcpy(data, m_left.constData(), static_cast<std::size_t>(count));
        m_left.remove(0, count);
        return count;
    }

    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

private:
    QByteArray m_left;
};

struct Piece
{
    QString text;
    int lineEnd; // it can be taken as soon as so many bytes have arrived
};

std::vector<Piece> piecesOf(const QByteArray& stream)
{
    std::vector<Piece> pieces;
    int begin = 0;
    for (int end = stream.indexOf('\n') + 1; end > 0; end = stream.indexOf('\n', begin) + 1) {
        while (begin < end) {
            const int length = std::min(end - begin, 1023);
            pieces.push_back({QString::fromUtf8(stream.constData() + begin, length), end});
            begin += length;
        }
    }
    return pieces;
}

struct Step
{
    int arriving; // bytes
    int taken;    // pieces at most
};

Step stepFrom(unsigned char code)
{
    const int arriving = 1 + code * code / 16;
    return {arriving, code % 2 == 1 ? std::numeric_limits<int>::max() : code % 8 / 2};
}

using Place = std::vector<Piece>::const_iterator;

// Takes so many pieces at most, which must be the next ones; the place behind them.
Place taken(common_LineBuffer& buffer, Place next, Place end, int most)
{
    for (int count = 0; count < most && buffer.hasLine(); ++count) {
        require(next != end, "there are no more pieces than those of the whole stream");
        require(next->text == buffer.takePiece(), "the pieces are those of the whole stream");
        ++next;
    }
    return next;
}

} // namespace

void fuzz(FuzzedInput input)
{
    std::array<Step, 8> steps = {};
    for (Step& step : steps) {
        step = stepFrom(input.byte());
    }
    const QByteArray stream = input.rest();
    const std::vector<Piece> pieces = piecesOf(stream);
    auto next = pieces.begin();
    common_LineBuffer buffer;
    int arrived = 0;
    for (std::size_t i = 0; arrived < stream.size(); ++i) {
        const Step& step = steps[i % steps.size()];
        ChunkDevice device(stream.mid(arrived, step.arriving));
        arrived = std::min<int>(arrived + step.arriving, stream.size());
        buffer.readFrom(device);
        next = taken(buffer, next, pieces.end(), step.taken);
        require(buffer.hasLine() == (next != pieces.end() && next->lineEnd <= arrived),
                "there is a piece as long as not all of them were taken");
    }
    next = taken(buffer, next, pieces.end(), std::numeric_limits<int>::max());
    require(next == pieces.end(), "every piece can be taken");
    buffer.clear();
    require(!buffer.hasLine(), "a cleared buffer has no line");
}
