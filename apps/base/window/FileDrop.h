#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

/// Lets files be dropped on a window.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    /// Is the window's child. What its own children do not take is left to it.
    explicit FileDrop(QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The local files that were dropped, in their order; one at least.
    void dropped(const QStringList& files);
};
