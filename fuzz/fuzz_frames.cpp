// SPDX-License-Identifier: MIT
// The stream between the processes of a run, which another program may have printed on. An input
// begins with a byte that says how much arrives at once.

#include "Fuzzing.h"

#include <Frame.h>

using suite::Frame;
using suite::FrameReader;

namespace {

void readPayload(const Frame& frame)
{
    qint32 number = 0;
    bool flag = false;
    double value = 0;
    QString text;
    QByteArray bytes;
    if (frame.read(number, text, bytes)) {
        require(Frame::of(frame.type, number, text, bytes).payload.size() <= frame.payload.size(),
                "what was read was there");
    }
    Q_UNUSED(frame.read(flag, value, text))
}

} // namespace

void fuzz(FuzzedInput input)
{
    const int part = 1 + input.byte();
    const QByteArray stream = input.rest();
    FrameReader reader;
    QByteArray taken;
    for (int begin = 0; begin < stream.size(); begin += part) {
        reader.add(stream.mid(begin, part));
        while (const auto frame = reader.next()) {
            taken += frame->bytes();
            readPayload(*frame);
        }
        const QByteArray arrived = stream.left(begin + part);
        require(taken + reader.rest() == arrived, "no byte is lost or changed");
    }
    require(!reader.isBroken() || !reader.next(), "a broken stream stays broken");
}
