// SPDX-License-Identifier: MIT
#pragma once

#include <QTabWidget>

class common_KestProcessOutputTableWidget;
class common_KestProcessOutputTextEdit;

/// The output of a solver component in tabs: all of it in colours, the numbered notices, the
/// numbered warnings, and the errors. Needs the service common_IIconUtility.
class common_KestProcessOutputTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    explicit common_KestProcessOutputTabWidget(QWidget* parent);
    ~common_KestProcessOutputTabWidget() override;

    /// Appends ordinary output as a paragraph.
    void append(const QString& text);

    /// Shows the error in the output and among the errors, whose tab becomes the current one.
    void addError(const QString& text);

    /// Shows the warning in the output, and lists it when it is numbered. Returns the number of
    /// warnings that are listed.
    int addWarning(const QString& text);

    /// The same for a notice.
    int addNotice(const QString& text);

private Q_SLOTS:
    void onContextMenuRequested(const QPoint& position);
    void onOutputScrolled(int value);
    void findNext();
    void onNoticeSelected(int row, int column);
    void onWarningSelected(int row, int column);

private:
    QString colourise(const QString& text, const QColor& colour);
    void addOutputView();
    common_KestProcessOutputTableWidget* addTable(const QString& name, const QString& tabText,
                                                  const char* iconName, const char* slot);
    int list(common_KestProcessOutputTableWidget* table, const QString& message,
             const QString& keyword, const QString& tabText, int count);
    void selectInOutput(const common_KestProcessOutputTableWidget* table, int row);

    common_KestProcessOutputTextEdit* m_errorsView = nullptr;
    common_KestProcessOutputTableWidget* m_warningsTable = nullptr;
    common_KestProcessOutputTableWidget* m_noticesTable = nullptr;
    common_KestProcessOutputTextEdit* m_outputView = nullptr;
    int m_warningCount = 0;
    int m_noticeCount = 0;
};
