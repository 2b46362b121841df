#ifndef OPTIONRULES_H
#define OPTIONRULES_H

#include <QString>

class common_PropertyMetaData;

/// What a launch option may be when a person types it into the dialog.
namespace OptionRules {

/// What is wrong with the text, as a sentence; empty when it is right.
QString complaint(const common_PropertyMetaData& metaData, const QString& text);

} // namespace OptionRules

#endif
