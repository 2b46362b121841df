// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

namespace suite {
class MachinesFile;
}

/// The text of a machines file, with line numbers, and with its findings underlined.
class MachinesTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MachinesTextEdit(QWidget* parent);

    void showFindings(const suite::MachinesFile& file);

    /// Puts the cursor into the line. The first line is 1.
    void goToLine(int line);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int numbersWidth() const;
    void paintNumbers(const QRect& rect);
    void placeNumbers();

    QWidget* m_numbers;
};
