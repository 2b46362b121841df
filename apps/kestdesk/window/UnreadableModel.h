#pragma once

#include <QString>

/// What the window says of a model that it cannot use.
namespace UnreadableModel {

QString text(const QString& path);

} // namespace UnreadableModel
