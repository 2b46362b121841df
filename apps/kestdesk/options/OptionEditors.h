#pragma once

class OptionEditor;
class QWidget;
struct LaunchOptionRow;

/// The kinds of editors.
namespace OptionEditors {

/// The editor of a row, with object name, accessible name and hint. The parent owns its widget, and
/// that the editor.
OptionEditor* make(const LaunchOptionRow& row, QWidget* parent);

} // namespace OptionEditors
