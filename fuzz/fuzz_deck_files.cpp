// SPDX-License-Identifier: MIT
// A deck in the editor: what was not edited comes back byte for byte.

#include "Fuzzing.h"

#include <DeckFile.h>
#include <SettingsFolders.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

void requireEdited(DeckFile& file, const QString& path)
{
    // The letter keeps a carriage return at the end from becoming a part of the line end.
    const QString edited = file.text() + QStringLiteral("E\nEN");
    require(file.save(path, edited), "an edited deck can be saved");
    DeckFile again;
    require(again.load(path), "and read again");
    require(again.text() == edited, "with the same text");
}

} // namespace

void fuzz(FuzzedInput input)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("deck.nec"));
    const QByteArray bytes = input.rest();
    require(SettingsFolders::write(path, bytes), "the file can be written");
    DeckFile file;
    if (!file.load(path)) {
        require(!file.error().isEmpty(), "a deck that is not opened has a reason");
        return;
    }
    require(file.bytes(file.text()) == bytes, "what was not edited comes back byte for byte");
    requireEdited(file, path);
}
