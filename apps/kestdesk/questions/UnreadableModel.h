#pragma once

#include <QString>

/// What the window says of a model that it cannot use.
namespace UnreadableModel {

/// A sentence or two. The hint, which may be empty, is one more.
QString text(const QString& path, const QString& hint = QString());

} // namespace UnreadableModel
