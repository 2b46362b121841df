#pragma once

#include <QString>

/// What the remote host may be: "[user@]HOST [user=NAME] [port=NUMBER] [home=FOLDER]".
namespace HostRule {

/// What is wrong with the text, as a sentence; empty when it is right, or empty itself.
QString complaint(const QString& text);

} // namespace HostRule
