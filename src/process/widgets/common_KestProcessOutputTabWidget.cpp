// SPDX-License-Identifier: MIT
#include "common_KestProcessOutputTabWidget.h"

#include "common_Colourise.h"
#include "common_KestProcessOutputTableWidget.h"
#include "common_KestProcessOutputTextEdit.h"
#include "common_LineStyle.h"

#include <QtVersion.h>
#include <common_IIconUtility.h>
#include <common_ProcessDialogIcons.h>
#include <common_ServiceOf.h>

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>

namespace {

using TextEdit = common_KestProcessOutputTextEdit;
using Table = common_KestProcessOutputTableWidget;

constexpr const char* sourceFile = "src/process/widgets/common_KestProcessOutputTabWidget.cpp";
constexpr int smallestHeight = 300;
constexpr double tabStopDistance = 56.0;
constexpr int lightWeight = QtVersion::fontWeight(2);
constexpr int descriptionColumn = 2;

QIcon icon(const char* name)
{
    return common_ServiceOf<common_IIconUtility>::getService("common_IIconUtility", sourceFile,
                                                             __LINE__)
        ->getIcon(QLatin1String(name));
}

} // namespace

common_KestProcessOutputTabWidget::common_KestProcessOutputTabWidget(QWidget* parent)
    : QTabWidget(parent)
{
    setMinimumSize(0, smallestHeight);
    addOutputView();
    m_noticesTable = addTable(QStringLiteral("Notice"), QStringLiteral("Notices"),
                              common_ProcessDialogIcons::info, SLOT(onNoticeSelected(int, int)));
    m_warningsTable =
        addTable(QStringLiteral("Warning"), QStringLiteral("Warnings"),
                 common_ProcessDialogIcons::warning, SLOT(onWarningSelected(int, int)));
    m_errorsView = new TextEdit(TextEdit::Following::Bottom, this);
    addTab(m_errorsView, icon(common_ProcessDialogIcons::fault), QStringLiteral("Errors"));
}

common_KestProcessOutputTabWidget::~common_KestProcessOutputTabWidget() = default;

void common_KestProcessOutputTabWidget::append(const QString& text)
{
    m_outputView->appendLine(text);
}

void common_KestProcessOutputTabWidget::addError(const QString& text)
{
    const QColor red(QStringLiteral("red"));
    m_errorsView->appendLine(text.simplified(), {red});
    m_outputView->appendLine(text, {red});
    setCurrentWidget(m_errorsView);
}

int common_KestProcessOutputTabWidget::addWarning(const QString& text)
{
    m_warningCount = list(m_warningsTable, text, QStringLiteral("WARNING "),
                          QStringLiteral("Warnings(%1)"), m_warningCount);
    m_outputView->appendLine(text, {QColor(QStringLiteral("orange")), true});
    return m_warningCount;
}

int common_KestProcessOutputTabWidget::addNotice(const QString& text)
{
    m_noticeCount = list(m_noticesTable, text, QStringLiteral("NOTE "),
                         QStringLiteral("Notices(%1)"), m_noticeCount);
    m_outputView->appendLine(text, {QColor(QStringLiteral("blue"))});
    return m_noticeCount;
}

void common_KestProcessOutputTabWidget::onContextMenuRequested(const QPoint& position)
{
    m_outputView->finishLayout();
    const QPointer<QMenu> menu = m_outputView->createStandardContextMenu();
    menu->addSeparator();
    connect(menu->addAction(QStringLiteral("Find next")), SIGNAL(triggered()), this,
            SLOT(findNext()));
    menu->exec(m_outputView->viewport()->mapToGlobal(position));
    delete menu;
}

void common_KestProcessOutputTabWidget::onOutputScrolled(int value)
{
    if (value == m_outputView->verticalScrollBar()->maximum()) {
        m_outputView->moveCursor(QTextCursor::End);
    }
}

void common_KestProcessOutputTabWidget::findNext()
{
    m_outputView->finishLayout();
    if (!m_outputView->find(m_outputView->textCursor().selectedText())) {
        m_outputView->moveCursor(QTextCursor::Start);
    }
    m_outputView->showTextCursor();
}

void common_KestProcessOutputTabWidget::onNoticeSelected(int row, int /*column*/)
{
    selectInOutput(m_noticesTable, row);
}

void common_KestProcessOutputTabWidget::onWarningSelected(int row, int /*column*/)
{
    selectInOutput(m_warningsTable, row);
}

QString common_KestProcessOutputTabWidget::colourise(const QString& text, const QColor& colour)
{
    return common_colourise(text, colour);
}

void common_KestProcessOutputTabWidget::addOutputView()
{
    m_outputView = new TextEdit(TextEdit::Following::TextCursor, this);
    m_outputView->setObjectName(QStringLiteral("outputTextEdit"));
    m_outputView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_outputView->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_outputView->setWordWrapMode(QTextOption::WordWrap);
    m_outputView->setContextMenuPolicy(Qt::CustomContextMenu);
    m_outputView->setTabStopDistance(tabStopDistance);
    m_outputView->setFont(QFont(QStringLiteral("Courier"), 9, lightWeight, false));
    addTab(m_outputView, QStringLiteral("Output"));
    connect(m_outputView, SIGNAL(customContextMenuRequested(const QPoint&)), this,
            SLOT(onContextMenuRequested(const QPoint&)));
    connect(m_outputView->verticalScrollBar(), SIGNAL(sliderMoved(int)), this,
            SLOT(onOutputScrolled(int)));
}

Table* common_KestProcessOutputTabWidget::addTable(const QString& name, const QString& tabText,
                                                   const char* iconName, const char* slot)
{
    auto* const table = new Table(name, this);
    addTab(table, icon(iconName), tabText);
    connect(table, SIGNAL(cellDoubleClicked(int, int)), this, slot);
    return table;
}

// Lists the message if it contains the keyword. Returns the number of listed messages.
int common_KestProcessOutputTabWidget::list(Table* table, const QString& message,
                                            const QString& keyword, const QString& tabText,
                                            int count)
{
    if (!message.contains(keyword, Qt::CaseInsensitive)) {
        return count;
    }
    QString numbered = message.simplified();
    const int newCount = table->add(numbered.remove(keyword, Qt::CaseInsensitive));
    setTabText(indexOf(table), tabText.arg(newCount));
    return newCount;
}

void common_KestProcessOutputTabWidget::selectInOutput(const Table* table, int row)
{
    m_outputView->finishLayout();
    setCurrentWidget(m_outputView);
    m_outputView->moveCursor(QTextCursor::Start);
    m_outputView->find(table->item(row, descriptionColumn)->text(), QTextDocument::FindWholeWords);
    m_outputView->showTextCursor();
}
