// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The error message for a model that cannot be opened.
namespace UnreadableModel {

/// One or two sentences, and the hint, a sentence that may be empty.
QString text(const QString& path, const QString& hint = QString());

} // namespace UnreadableModel
