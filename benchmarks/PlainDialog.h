// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>
#include <common_IProcessRunnerObserver.h>
#include <common_ObserverOf.h>

#include <QDialog>
#include <QHeaderView>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QVBoxLayout>

/// The output views written down simply: the text is appended and scrolled line by line; the table
/// is searched and fitted as a whole for each warning.
class PlainDialog : public QDialog, public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    explicit PlainDialog(common_ObservableVia<common_IProcessRunnerObserver>* runner)
        : common_ObserverOf(runner)
    {
        const QFont font(QStringLiteral("Courier"), 9, 2, false);
        m_output->setReadOnly(true);
        m_output->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        m_output->setWordWrapMode(QTextOption::WordWrap);
        m_output->setFont(font);
        m_warnings->setColumnCount(3);
        m_warnings->setColumnWidth(0, 80);
        m_warnings->setColumnWidth(1, 45);
        m_warnings->setWordWrap(true);
        m_warnings->horizontalHeader()->setStretchLastSection(true);
        m_warnings->verticalHeader()->hide();
        m_warnings->setFont(font);
        auto* const tabs = new QTabWidget;
        tabs->setMinimumSize(700, 300);
        tabs->addTab(m_output, QStringLiteral("Output"));
        tabs->addTab(m_warnings, QStringLiteral("Warnings"));
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(tabs);
    }

    void onProcessStarted(const QString&, const QStringList&) override { show(); }
    void onFailedProcessStarted(const QString&, const QStringList&, const QString&) override {}
    void onProcessDone() override {}
    void onExitCodeChanged(int) override {}

    void onProcessMessageReceived(const common_IProcessMessage& message) override
    {
        const QString text = message.getText();
        switch (message.getType()) {
        case common_IProcessMessage::Warning:
            addWarning(text);
            append(QStringLiteral("<font color=#ffa500><b>%1</b></font>").arg(text));
            break;
        case common_IProcessMessage::Notice:
            append(QStringLiteral("<font color=#0000ff>%1</font>").arg(text));
            break;
        default:
            append(text);
        }
    }

    int lineCount() const { return m_output->document()->blockCount(); }
    int warningCount() const { return m_warnings->rowCount(); }

private:
    void append(const QString& text)
    {
        m_output->append(text);
        if (!m_output->verticalScrollBar()->isSliderDown()) {
            m_output->ensureCursorVisible();
        }
    }

    void addWarning(const QString& text)
    {
        QString message = text.simplified();
        message.remove(QStringLiteral("WARNING "), Qt::CaseInsensitive);
        const QString description = message.split(QLatin1Char(':')).last().simplified();
        const auto equal = m_warnings->findItems(description, Qt::MatchFixedString);
        for (const QTableWidgetItem* const found : equal) {
            QTableWidgetItem* const count = m_warnings->item(found->row(), 1);
            count->setText(QString::number(count->text().toInt() + 1));
        }
        const int row = m_warnings->rowCount();
        m_warnings->insertRow(row);
        m_warnings->setItem(row, 0, new QTableWidgetItem(message.section(QLatin1Char(' '), 0, 0)));
        m_warnings->setItem(row, 1, new QTableWidgetItem(QStringLiteral("1")));
        m_warnings->setItem(row, 2, new QTableWidgetItem(description));
        m_warnings->resizeRowsToContents();
    }

    QTextEdit* m_output = new QTextEdit;
    QTableWidget* m_warnings = new QTableWidget;
};
