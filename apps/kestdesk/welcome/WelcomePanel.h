// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QMenu;

/// The first steps, shown in the window while there is neither a model nor a run.
class WelcomePanel : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomePanel(QWidget* parent);

Q_SIGNALS:
    void openRequested();

    /// The user has chosen a sample; the path is that of the user's copy.
    void sampleOpened(const QString& path);

    /// The sample could not be copied. The text is a sentence.
    void reported(const QString& text);

private:
    void listSamples(QMenu& menu);
    void openSample(const QString& sample);
};
