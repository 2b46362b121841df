// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

/// Lets files be dropped on a window.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    /// The window owns this object. Drops that the window's child widgets accept are left to them.
    explicit FileDrop(QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Local files were dropped, at least one; in their order.
    void dropped(const QStringList& files);
};
