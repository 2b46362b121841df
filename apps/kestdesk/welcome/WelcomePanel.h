#pragma once

#include <QWidget>

class QMenu;

/// What the window shows as long as there is neither a model nor a run: how to begin.
class WelcomePanel : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomePanel(QWidget* parent);

Q_SIGNALS:
    void openRequested();

    /// A model for the user to try, which is the user's own copy of a sample.
    void sampleOpened(const QString& path);

    /// There can be no such copy: a sentence that says why.
    void reported(const QString& text);

private:
    void listSamples(QMenu& menu);
    void openSample(const QString& sample);
};
