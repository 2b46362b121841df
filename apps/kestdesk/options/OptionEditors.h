// SPDX-License-Identifier: MIT
#pragma once

class OptionEditor;
class QWidget;
struct LaunchOptionRow;

/// Creates editors for all types of options.
namespace OptionEditors {

/// Creates the editor of a row, with object name, accessible name and hint. The parent owns its
/// widget, and the widget owns the editor.
OptionEditor* make(const LaunchOptionRow& row, QWidget* parent);

} // namespace OptionEditors
