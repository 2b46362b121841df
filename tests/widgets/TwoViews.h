// SPDX-License-Identifier: MIT
#pragma once

#include <TestRandom.h>

#include <common_KestProcessOutputLayout.h>

#include <QRandomGenerator>
#include <QTextEdit>

inline bool isAnyInked(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                return true;
            }
        }
    }
    return false;
}

/// A text in QTextEdit's own layout and in the one under test.
class TwoViews
{
public:
    explicit TwoViews(const QSize& size = QSize(300, 200))
    {
        layout = new common_KestProcessOutputLayout(m_tested.document());
        layout->setPaintDevice(m_tested.viewport());
        m_tested.document()->setDocumentLayout(layout);
        for (QTextEdit* const view : {&m_plain, &m_tested}) {
            view->setReadOnly(true);
            view->setWordWrapMode(QTextOption::WordWrap);
            view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
            view->setTabStopDistance(56);
            view->resize(size);
            view->show();
        }
    }

    void append(const QString& text, const QTextCharFormat& format = QTextCharFormat())
    {
        for (QTextEdit* const view : {&m_plain, &m_tested}) {
            QTextCursor writer(view->document());
            writer.movePosition(QTextCursor::End);
            if (!view->document()->isEmpty()) {
                writer.insertBlock(QTextBlockFormat(), QTextCharFormat());
            }
            writer.insertText(text, format);
        }
    }

    // Of every kind that a view may get, in a hundred lines.
    void appendLinesOfAllKinds()
    {
        QRandomGenerator random = TestRandom::usual(5);
        QTextCharFormat coloured;
        coloured.setForeground(Qt::red);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        QTextCharFormat large;
        large.setFontPointSize(23);
        QTextCharFormat raised;
        raised.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
        const QVector<QTextCharFormat> formats = {{}, coloured, bold, large, raised};
        const QStringList words = QString::fromUtf8("a word \u05e9\u05dc\u05d5\u05dd |\t|longer |"
                                                    "\u00e9\u4e2d\U0001f600 |-|x\u2028y|  ")
                                      .split(QLatin1Char('|'));
        for (int line = 0; line < 100; ++line) {
            QString text;
            for (int left = random.bounded(30); left > 0; --left) {
                text += words.at(random.bounded(words.size()));
            }
            append(text, formats.at(random.bounded(formats.size())));
        }
        append(
            QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd 12 ").repeated(9));
        append(QString(200, QLatin1Char('x')));
        append(QString());
    }

    void layOutAll() const { layout->layOut(0, 1e9); }

    QTextEdit& plain() { return m_plain; }
    QTextEdit& tested() { return m_tested; }

    common_KestProcessOutputLayout* layout = nullptr; // of the tested one

private:
    QTextEdit m_plain;
    QTextEdit m_tested;
};
