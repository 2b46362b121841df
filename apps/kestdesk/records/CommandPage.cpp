// SPDX-License-Identifier: MIT
#include "CommandPage.h"

#include "ShellCommand.h"

#include <VisibleText.h>

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

void add(QString& text, const QString& title, const QStringList& lines)
{
    if (!lines.isEmpty()) {
        text += title + QStringLiteral("\n  ") + lines.join(QStringLiteral("\n  ")) +
                QStringLiteral("\n\n");
    }
}

QStringList linesOf(const QVector<RunRecord::Option>& options, bool isWithDefault)
{
    QStringList lines;
    for (const RunRecord::Option& option : options) {
        const QString line = isWithDefault
                                 ? CommandPage::tr("%1 = %2   (default: %3)")
                                       .arg(option.name, option.value, option.defaultValue)
                                 : QStringLiteral("%1 = %2").arg(option.name, option.value);
        lines.append(suite::visibleText(line));
    }
    return lines;
}

} // namespace

CommandPage::CommandPage(QWidget* parent) : QWidget(parent), m_text(new QPlainTextEdit(this))
{
    m_text->setObjectName(QStringLiteral("commandText"));
    m_text->setAccessibleName(tr("Command"));
    m_text->setReadOnly(true);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* copy = new QPushButton(tr("Copy co&mmand"), this);
    copy->setObjectName(QStringLiteral("copyCommandButton"));
    connect(copy, &QPushButton::clicked, this, &CommandPage::copyCommand);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(copy, 0, Qt::AlignRight);
}

void CommandPage::show(const RunRecord& record)
{
    m_command = ShellCommand::of(record);
    QString text;
    add(text, tr("Command"), {suite::visibleText(m_command)});
    add(text, tr("Folder"), {suite::visiblePath(record.workingDirectory)});
    add(text, tr("Run options"), record.runOptions);
    add(text, tr("Environment, in addition to the system's"), record.environment);
    const QStringList changed = linesOf(record.changedOptions(), true);
    add(text, tr("Launch options that differ from the defaults"),
        changed.isEmpty() ? QStringList(tr("none")) : changed);
    add(text, tr("All launch options"), linesOf(record.launchOptions, false));
    m_text->setPlainText(text);
}

void CommandPage::copyCommand()
{
    QGuiApplication::clipboard()->setText(m_command);
}
