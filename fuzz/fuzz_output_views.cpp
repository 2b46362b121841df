// SPDX-License-Identifier: MIT
// Lines of any content in the process dialog: they are parsed and shown as those of a component,
// and the plain line behind them is shown plain.

#include "Fuzzing.h"

#include <DialogStage.h>

#include <QApplication>
#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextList>

namespace {

// Of a component that exports variables here, which ends the application on purpose.
bool isShown(const common_KestProcessMessage& message)
{
    return message.getType() != common_IProcessMessage::Variable;
}

void say(TalkingRunner& runner, const QString& piece)
{
    const QVector<common_KestProcessMessage> messages =
        common_KestProcessMessage::parseOutput(piece);
    for (const common_KestProcessMessage& message : messages) {
        if (isShown(message)) {
            runner.say(message.getType(), message.getText());
        }
    }
}

void requirePlain(const QTextBlock& block, const QString& text)
{
    require(block.text() == text, "the next line is a paragraph of its own");
    require(block.textList() == nullptr, "the next line is no part of a list");
    for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
        const QTextCharFormat format = fragment.fragment().charFormat();
        require(format.foreground().style() == Qt::NoBrush, "the next line has no colour");
        require(format.fontWeight() <= QFont::Normal, "the next line is not bold");
        require(!format.isAnchor() && !format.fontItalic() && !format.fontUnderline(),
                "the next line is plain");
    }
}

} // namespace

void fuzz(FuzzedInput input)
{
    needApplication<QApplication>();
    const DialogStage stage;
    stage.runner->start();
    if (input.flag()) {
        stage.openDetails();
    }
    while (!input.isAtEnd()) {
        const QString line = FuzzedInput::decoded(input.line());
        say(*stage.runner, line);
    }
    const QString plain = QStringLiteral("the next line");
    say(*stage.runner, plain);
    QCoreApplication::processEvents();
    requirePlain(stage.output()->document()->lastBlock(), plain);
    stage.runner->end();
    require(stage.ok()->property("squishValue").isValid(), "the outcome is told");
}
