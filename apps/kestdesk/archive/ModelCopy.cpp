// SPDX-License-Identifier: MIT
#include "ModelCopy.h"

#include "RecordFolder.h"

#include <InputFile.h>
#include <Preprocessor.h>

#include <QCryptographicHash>

namespace {

const QString copyName = QStringLiteral("model.nec");
constexpr qint64 largestModel = 64 << 20;

QString checksum(const QByteArray& bytes)
{
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex());
}

} // namespace

bool ModelCopy::add(RunRecord& record, RecordFolder& folder)
{
    const auto bytes = suite::InputFile(record.model).read(largestModel);
    if (!bytes) {
        return true;
    }
    const suite::Model model = suite::Preprocessor(*bytes).model();
    record.segments = model.structure.segmentCount();
    record.frequencies = model.frequencies.count;
    record.modelChecksum = checksum(*bytes);
    record.modelCopy = copyName;
    return folder.writeFile(copyName, *bytes);
}
